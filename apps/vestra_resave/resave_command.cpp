// The command `resave`: checks, load, run, companions, manifest, verification and output.
#include "apps/vestra_resave/commands.h"

#include <algorithm>
#include <iostream>
#include <iterator>
#include <nlohmann/json.hpp>

#include "apps/vestra_resave/archive/packed_archive.h"
#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/lost_files.h"
#include "apps/vestra_resave/manifest.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/preflight.h"
#include "apps/vestra_resave/remembered_disk.h"
#include "apps/vestra_resave/report/page_facts.h"
#include "apps/vestra_resave/report/page_file.h"
#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/shortfalls.h"
#include "apps/vestra_resave/words.h"
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/files/files.h"
#include "reference_host/shell/front_end.h"
#include "services/entity_factory.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// Returns the missing folders of the new project's path, deepest first.
std::vector<wide_string> missing_levels(wide_string folder) {
    std::vector<wide_string> missing;
    while (!folder.empty() && !path_exists(folder)) {
        missing.push_back(folder);
        const wide_string above = path_head(path_normalise(folder));
        // Nothing is above the drive, or above a path without one.
        if (above.size() >= folder.size()) break;
        folder = above;
    }
    return missing;
}

// Removes those of the folders that exist. Returns a problem for each that could not be removed.
std::vector<problem> take_back(const std::vector<wide_string>& levels) {
    std::vector<problem> kept;
    for (const wide_string& level : levels)
        if (const platform::outcome removed = platform::current_system().remove_folder(level);
            !removed && path_exists(level))
            kept.push_back({name_of(fact_kind::not_erased), {}, {}, level, removed.text()});
    return kept;
}

// Refuses a path that, in lower case, is a different existing folder: the copies would go there, and only the
// project file to the requested path.
std::optional<refusal> refuse_lowered(const wide_string& folder) {
    for (wide_string level = path_normalise(folder); level.size() > path_fixed_length(level);
         level = path_normalise(path_head(level))) {
        wide_string lowered = level;
        platform::lower_in_place(lowered);
        if (path_exists(level) && path_exists(lowered) &&
            !platform::current_system().same_file(level, lowered))
            return refused(level, say("with --lowercase the files would go to another existing folder: %1",
                                      {printed(lowered)}));
    }
    return std::nullopt;
}

// Checks the paths before anything is read.
std::optional<refusal> refuse_paths(const wide_string& source, const wide_string& target,
                                    const resave_request& request) {
    const std::string& typed = request.new_project;
    if (auto early = refuse_share(request.project)) return early;
    if (is_same_file(source, target)) return refused({}, one_line(load_string(text::same_project_name)));
    const bool has_name = typed.find_last_of("/\\") + 1 != typed.size();
    if (path_head(target).empty() || !has_name)
        return refused({}, say("%1: the new project needs a folder and a name", {typed}));
    if (auto early = refuse_output(typed)) return early;
    if (request.settings.lower_case)
        if (auto early = refuse_lowered(path_head(target))) return early;
    vestra::project older;
    if (!path_exists(target)) return std::nullopt;
    // Read as a whole: --overwrite never replaces a file that only has the name of a project.
    const auto fault = files::read_project(target, older);
    if (!fault) return std::nullopt;
    return refused(target, say("exists and is not a project file: %1", {say_known(one_line(fault->reason))}));
}

// Loads the project and applies the selection.
std::optional<refusal> prepare(session& host, const resave_request& request, continuation& earlier,
                               const wide_string& target, bool is_trial) {
    const wide_string source = platform::drive_path(request.project);
    const std::optional<archive_place> archive = archive_in(request.new_project); // not yet a folder
    if (auto early = refuse_paths(source, target, request)) return early;
    // Before the load of the source, because it may load the earlier project into the same session.
    if (auto early = earlier.find(host)) return early;
    if (path_exists(target) && !request.overwrite && !earlier.may_replace_project())
        return refused(target, say("already exists; use --overwrite to replace it"));
    if (auto early = host.load(source, true, request.load_log)) return early;
    project_context& context = host.context();
    const std::vector<element> elements = elements_of(context);
    refusal early;
    // All wrong names are reported, not only the first.
    for (const std::string& line : apply(request.selection, elements, context.selection))
        early.problems.push_back(refused({}, line).problems.front());
    if (!early.problems.empty()) return early;
    if (!request.report.empty())
        // A trial and an archive create no folder that the page could be in.
        if (auto no_page = refuse_page(request.report, context, is_trial || archive ? wide_string() : target))
            return no_page;
    // Otherwise it would count as a companion of the data set and be packed into itself.
    if (archive)
        if (auto beside = refuse_data_name(archive->archive, context)) return beside;
    if (!request.allow_missing_drives)
        if (auto missing = refuse_missing_drives(elements, context)) return missing;
    if (archive) return protect_project_files({archive->archive, part_of(archive->archive)}, context);
    return protect_project_files({target}, context);
}

// The result of a run, or why there was none.
struct ended_run {
    std::optional<refusal> early;
    resave_report report;
    std::optional<source_elements> source;      // if there was a run
    std::vector<wide_string> made_folders = {}; // of the new project's path, deepest first
};

// Shows progress by bytes if there are many, otherwise by elements. A trial copies nothing.
run_result resave_shown(session& host, const resave_settings& settings, bool copies) {
    // Below this size the copies take no time that one could watch.
    constexpr uint64_t many = uint64_t{16} << 20;
    project_context& context = host.context();
    const auto bytes = static_cast<uint64_t>(context.sizes.total_kb() * 1024);
    const shown_transfer shown(host.screen(), copies && bytes >= many ? bytes : 0);
    return context.resave_project(settings);
}

ended_run run(session& host, const resave_request& request, continuation& earlier, trial_disk* trial,
              remembered_disk& asked_once, packed_archive* archive) {
    const wide_string target = platform::drive_path(request.new_project);
    if (auto early = prepare(host, request, earlier, target, trial != nullptr))
        return {std::move(early), {}, {}};
    project_context& context = host.context();
    // The run releases the project, so what is compared afterwards is collected now.
    source_elements source(context);

    const wide_string folder = path_head(target);
    // The folder is created before the journal, which is in it. These levels are not among the folders that
    // the run records, so they are removed here if it leaves nothing.
    const std::vector<wide_string> missing = missing_levels(folder);
    if (const platform::outcome made = create_folders(folder); !made) {
        refusal early{not_saved,
                      {{own_kind::not_created, {}, {}, as_on_disk(folder), reason_of(made.text(), folder)}}};
        std::ranges::move(take_back(missing), std::back_inserter(early.problems));
        return {std::move(early), {}, {}};
    }
    if (!archive) earlier.put_in_force(context, source, trial); // an interrupted run leaves no archive
    // After the disk is in place: copies of an earlier run count as free space. The journal has not begun, so
    // the files that are created to try the folder are not recorded.
    std::optional<refusal> early;
    {
        const remembered_disk::kept_answers kept(asked_once); // writes are only next to the new project
        early = refuse_target(folder, request, context, source);
        if (!early) early = archive ? archive->begin(request.overwrite) : earlier.begin_journal();
    }
    if (early) {
        earlier.abandon();
        std::ranges::move(take_back(missing), std::back_inserter(early->problems));
        return {std::move(early), {}, {}};
    }
    // A run can take hours, and others work in these folders meanwhile. Before its first write the guard of
    // the source learns the source's files, from the answers of the load.
    asked_once.remember_until_write();
    host.keep_places(earlier.disk());
    resave_settings settings = request.settings;
    settings.output_path = &target;
    shell::settings().refused_writes.clear();
    // The run clears the register of the project's files, but companions must not be placed over them.
    const std::vector<wide_string> source_paths = context.sizes.known_paths();
    const run_result result =
        // Bytes are counted only if every file is copied: kept copies would never be reported.
        bring_companions(context, request.companions, source, source_paths,
                         resave_shown(host, settings, !trial && !archive && request.mode == run_mode::anew));
    asked_once.remember(true);
    std::vector<problem> problems = host.problems();
    // Elements that the user left out are not reported as missing.
    std::erase_if(problems, [&](const problem& each) {
        return each.kind == name_of(fact_kind::type_not_resaved) && source.is_left_out(each.element.uuid);
    });
    add_unportable_names(context, problems);
    // Nothing of the run is left, so neither are its journal and the folders created above.
    if (context.progress.erase_created) {
        earlier.abandon();
        std::ranges::move(take_back(missing), std::back_inserter(problems));
    }
    return {std::nullopt, report_of(context, result, std::move(problems)), std::move(source), missing};
}

// A bundle that copies files itself bypasses the disk of a trial or of a continued run.
bool has_copying_bundle() {
    resave_entity_services copying;
    collect_resave_entity_services(copying);
    return !copying.empty();
}

} // namespace

std::optional<refusal> refuse_trial() {
    if (!has_copying_bundle()) return std::nullopt;
    return refused({}, say("--dry-run cannot be combined with a --bundle that copies its own files"));
}

ended_resave resave_in(session& host, const resave_request& request, trial_disk* trial,
                       packed_archive* archive) {
    remembered_disk asked_once;
    std::optional<platform::system_override> in_force;
    if (!trial) in_force.emplace(asked_once); // a trial hides and shows files without writing
    if (request.mode != run_mode::anew && has_copying_bundle()) {
        refusal early =
            refused({}, say("--update and --resume cannot be combined with a --bundle that copies its "
                            "own files; resave into a new folder"));
        return {std::move(early), {}, {}, {}};
    }
    if (archive && has_copying_bundle())
        return {refused(archive->path(), say("a --bundle that copies its own files cannot write them into an "
                                             "archive; resave into a folder")),
                {},
                {},
                {}};
    lost_file_search search;
    if (auto early = search.begin(request.search)) return {std::move(early), {}, {}, {}};
    continuation earlier(request, platform::drive_path(request.project),
                         platform::drive_path(request.new_project));
    ended_run ended = run(host, request, earlier, trial, asked_once, archive);
    if (ended.early) return {std::move(ended.early), {}, {}, {}};
    resave_report& report = ended.report;
    search.end();
    search.explain(report.problems);
    wide_string target = as_on_disk(host.context().placement.new_project_path);
    // The order of the following steps matters. While the context is still that of the run, earlier files are
    // judged, digests are recorded, the archive is filled, and the plan or the list of files is read. Then
    // the new project is loaded to look for shortfalls, which discards the run. Only then does an archive get
    // its name, and everything is flushed.
    const auto is_written = [&] { return report.exit == done || report.exit == problems; };
    if (request.prune) asked_once.remember(false); // each file is checked again before it is removed
    earlier.end_files(host.context(), report);
    if (request.prune) asked_once.remember(true);
    if (is_written() && !trial && !archive && (request.manifest || earlier.has_manifest())) {
        const shown_transfer shown(host.screen(), summary_of(report).bytes, summing_caption());
        const auto is_stopped = [&] { return host.interrupted(); };
        for (problem& each : write_manifest(host.context(), earlier, is_stopped, earlier.digests())) {
            // What was stopped on request is not a failure to create the file.
            if (is_stopped() && each.kind == own_kind::not_created) {
                each.kind = own_kind::interrupted;
                each.reason = u"writing the manifest was interrupted";
            }
            // Without a manifest only the journal knows which files are copies.
            if (each.kind == own_kind::not_created) earlier.keep_journal();
            add(report, each);
        }
        if (is_stopped()) report.exit = stopped;
    }
    if (archive && is_written()) {
        asked_once.remember(false); // a source that changes while it is packed must be noticed
        archive->write(host, earlier, report);
        asked_once.remember(true); // forgets what was known before the manifest was written
    }
    std::optional<resave_plan> plan;
    std::vector<resave_plan::file> files;
    if (trial) plan = plan_of(host.context(), *trial, report);
    if (!trial && !request.report.empty()) files = made_files_of(host.context());
    if (is_written()) add_shortfalls(host, *ended.source, request, report);
    std::ranges::move(search.notices(), std::back_inserter(report.problems));
    if (archive && is_written()) archive->put_in_place(report);
    if (archive && !is_written()) archive->discard();
    earlier.end_journal(report);
    if (!is_written()) take_back(ended.made_folders); // only empty ones
    ended_resave all{std::nullopt, std::move(report), std::move(plan), std::move(target), std::move(files)};
    if (!request.report.empty()) all.names = names_by_file(*ended.source);
    return all;
}

namespace {

// Runs the resave and prints everything about it.
int resave(session& host, const resave_request& request, const common_options& options, trial_disk* trial,
           packed_archive* archive = nullptr) {
    ended_resave ended = resave_in(host, request, trial, archive);
    if (ended.early) return end_with(*ended.early, options);
    auto& [early, report, plan, target, files, names] = ended;
    if (!request.report.empty()) {
        // Collected on the disk of the run, which in a trial knows the sizes of the planned files.
        const page_facts facts = facts_of(ended, request);
        // The page is written to the real disk even in a trial.
        const platform::system_override real(trial ? platform::operating_system()
                                                   : platform::current_system());
        for (const problem& each : write_page(request.report, facts)) add(report, each);
    }
    print_problems(report);
    if (options.json)
        std::cout << (plan ? json_of(*plan, report) : json_of(report)).dump(2) << '\n';
    else if (plan)
        print_text(*plan, report, target);
    else
        print_text(report, target, request.list_files);
    return report.exit;
}

// Returns the requested archive; the project in it has the name of its source unless another is given.
std::optional<archive_place> archive_of(const resave_request& request) {
    std::optional<archive_place> place = archive_in(request.new_project);
    if (place && place->inside.empty()) place->inside = path_file_name(platform::drive_path(request.project));
    return place;
}

// Returns the request for the run, which sees the archive as a folder. After a stop the user is not asked
// what to keep.
resave_request request_into(const archive_place& place, resave_request request) {
    request.new_project = platform::to_utf8(place.project());
    request.answers.on_stop = stop_answer::keep_created;
    return request;
}

} // namespace

int resave(const resave_request& asked, const common_options& options) {
    const std::optional<archive_place> place = archive_of(asked);
    if (!place) {
        session host(options, asked.answers);
        return resave(host, asked, options, nullptr);
    }
    const resave_request request = request_into(*place, asked);
    if (const auto early = refuse_archive(*place, request)) return end_with(*early, options);
    // In this order, because each refers to the one before: the archive's disk is above the real one, and the
    // session ends before either.
    packed_archive archive(*place);
    const platform::system_override in_force(archive.disk());
    session host(options, request.answers);
    return resave(host, request, options, nullptr, &archive);
}

int plan_resave(const resave_request& asked, const common_options& options) {
    const std::optional<archive_place> place = archive_of(asked);
    const resave_request request = place ? request_into(*place, asked) : asked;
    if (place)
        if (const auto early = refuse_archive(*place, request)) return end_with(*early, options);
    trial_disk disk;
    if (place) disk.hide(place->archive); // the run creates a folder instead
    const platform::system_override in_force(disk);
    session host(options, request.answers);
    if (const auto early = refuse_trial()) return end_with(*early, options);
    return resave(host, request, options, &disk);
}

} // namespace vestra::command
