#include "apps/vestra_resave/resave_command.h"

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/project_files.h"
#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/verification.h"
#include "framework/resources/strings.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/shell/settings.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr int32_t question_add_referenced = 214;
constexpr int32_t question_erase = 359;
constexpr int32_t question_reopen = 528;
constexpr int32_t same_name = 527;

shell::terminal_options answers(const resave_wish& wish) {
    shell::terminal_options front;
    front.decided = [&wish](wide_view question) -> std::optional<shell::answer> {
        if (question == load_string(question_add_referenced)) return wish.add_referenced;
        if (question == load_string(question_erase)) return wish.on_stop;
        if (question == load_string(question_reopen)) return shell::answer::no;
        return std::nullopt;
    };
    return front;
}

// The levels of the new project's folder that were missing, deepest first.
std::vector<wide_string> missing_levels(wide_string folder) {
    std::vector<wide_string> missing;
    while (!folder.empty() && !path_exists(folder)) {
        missing.push_back(folder);
        const wide_string above = path_head(path_normalise(folder));
        if (above.size() >= folder.size()) break;
        folder = above;
    }
    return missing;
}

// How the command ends where there is nothing to run; the person has been told why.
std::optional<int> run(session& host, const resave_wish& wish, const common_options& options) {
    const wide_string source = platform::drive_path(wish.project);
    const wide_string target = platform::drive_path(wish.new_project);
    if (is_same_file(source, target)) {
        complain(shell::printable(load_string(same_name)));
        return wrong_use;
    }
    const bool has_name = wish.new_project.find_last_of("/\\") + 1 != wish.new_project.size();
    if (path_head(target).empty() || !has_name) {
        complain(one_line(target) + ": the new project needs a folder and a name");
        return wrong_use;
    }
    if (platform::current_system().kind_of(target) == platform::entry_kind::folder) {
        complain(one_line(target) + ": it is a folder; the name of the new project is wanted");
        return wrong_use;
    }
    project_context& context = host.context();
    if (!context.load_project(source, !options.quiet, wish.load_log)) return wrong_use;
    const std::vector<std::string> complaints =
        apply(wish.selection, elements_of(context), context.selection);
    for (const std::string& line : complaints) complain(line);
    if (!complaints.empty() || would_replace_project_file({target}, context)) return wrong_use;

    const wide_string folder = path_head(target);
    const std::vector<wide_string> made = missing_levels(folder);
    const auto take_back = [&made] {
        for (const wide_string& level : made) platform::current_system().remove_folder(level);
    };
    if (!create_folders(folder)) {
        take_back();
        complain("cannot create the folder " + one_line(folder));
        return not_saved;
    }
    resave_settings settings = wish.settings;
    settings.output_path = &target;
    shell::settings().refused_writes.clear();
    context.resave_project(settings);
    if (context.progress.erase_created) take_back();
    return std::nullopt;
}

// The run asks only whether a project of that name is there, which can be an older one.
void look_at_new_project(project_context& context) {
    for (const shell::refused_file& refused : shell::settings().refused_writes) {
        if (!path_same(refused.path, context.placement.new_project_path)) continue;
        complain(one_line(refused.reason));
        context.report.saved = false;
    }
}

// Reads the new project, so that what the run left in the context is gone.
verification verified(session& host) {
    project_context& context = host.context();
    const wide_string project = context.placement.new_project_path;
    std::vector<placed_file> copies;
    std::vector<wide_string> made;
    for (const placed_file& each : context.placement.placed) {
        made.push_back(each.new_path);
        if (!each.old_path.empty() && each.new_path != project) copies.push_back(each);
    }
    const auto is_stopped = [&] { return host.interrupted(); };
    verification found;
    if (context.load_project(project, false, false))
        verify(context, made, is_stopped, found);
    else
        found.astray.push_back({"project", path_file_name(project), project, project, "unreadable"});
    compare(copies, is_stopped, found);
    return found;
}

void add(const verification& found, resave_report& report) {
    for (const std::string& line : lines_of(found)) complain(line);
    if (found.stopped) {
        complain("the verification was stopped before its end");
        report.exit = stopped;
    } else if (report.exit == done && !(found.astray.empty() && found.differing.empty())) {
        report.exit = problems;
        report.outcome = "saved with problems";
    }
}

} // namespace

int resave(const resave_wish& wish, const common_options& options) {
    session host(options, answers(wish));
    if (const std::optional<int> end = run(host, wish, options)) return *end;
    look_at_new_project(host.context());
    resave_report report = report_of(host.context());
    // Where the host's own message has told problems they are not told again.
    complain_of_problems(report, !options.quiet && report.exit == problems);
    complain_of_files(report);
    const wide_string target = host.context().placement.new_project_path;
    std::optional<verification> found;
    if (wish.verify && (report.exit == done || report.exit == problems)) {
        found = verified(host);
        add(*found, report);
    }
    if (options.json)
        print_json(report, found);
    else
        print_text(report, target, wish.list_files);
    return report.exit;
}

int plan_resave(const resave_wish& wish, const common_options& options) {
    trial_disk disk;
    const platform::system_override in_force(disk);
    common_options silent = options; // a message of the host would tell that the project is saved
    silent.quiet = true;
    session host(silent, answers(wish));
    resave_entity_services copying;
    collect_resave_entity_services(copying);
    if (!copying.empty()) {
        complain("--dry-run: a bundle of --bundle copies files by itself, which cannot be tried out");
        return wrong_use;
    }
    if (const std::optional<int> end = run(host, wish, silent)) return *end;
    look_at_new_project(host.context());
    const resave_plan plan = plan_of(host.context(), disk);
    complain_of(plan);
    if (options.json)
        print_json(plan);
    else
        print_text(plan, host.context().placement.new_project_path);
    return plan.report.exit;
}

} // namespace vestra::command
