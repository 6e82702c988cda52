#include "apps/vestra_resave/commands.h"

#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/verification.h"
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"
#include "services/entity_factory.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

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

// The result of the run, or how the command ends where there is nothing to run; the person has been told why.
struct run_end_or_exit {
    run_end_or_exit(int status) : exit(status) {}
    run_end_or_exit(run_result ended) : result(std::move(ended)) {}

    std::optional<int> exit;
    run_result result;
};

run_end_or_exit run(session& host, const resave_request& request, const common_options& options) {
    const wide_string source = platform::drive_path(request.project);
    const wide_string target = platform::drive_path(request.new_project);
    if (is_same_file(source, target)) {
        complain(shell::printable(load_string(text::same_project_name)));
        return wrong_use;
    }
    const bool has_name = request.new_project.find_last_of("/\\") + 1 != request.new_project.size();
    if (path_head(target).empty() || !has_name) {
        complain(one_line(target) + ": the new project needs a folder and a name");
        return wrong_use;
    }
    if (platform::current_system().kind_of(target) == platform::entry_kind::folder) {
        complain(one_line(target) + ": is a folder; give the name of the new project file");
        return wrong_use;
    }
    project_context& context = host.context();
    if (!host.load(source, !options.quiet, request.load_log)) return wrong_use;
    const std::vector<std::string> complaints =
        apply(request.selection, elements_of(context), context.selection);
    for (const std::string& line : complaints) complain(line);
    if (!complaints.empty() || would_replace_project_file({target}, context)) return wrong_use;

    const wide_string folder = path_head(target);
    const std::vector<wide_string> missing = missing_levels(folder);
    const auto take_back = [&missing] {
        for (const wide_string& level : missing) platform::current_system().remove_folder(level);
    };
    if (const platform::outcome made = create_folders(folder); !made) {
        take_back();
        complain(one_line(folder) + ": the folder could not be created: " + one_line(made.text()));
        return not_saved;
    }
    resave_settings settings = request.settings;
    settings.output_path = &target;
    shell::settings().refused_writes.clear();
    const run_result result = context.resave_project(settings);
    if (context.progress.erase_created) take_back();
    return result;
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

int resave(const resave_request& request, const common_options& options) {
    session host(options, request.answers);
    const run_end_or_exit ended = run(host, request, options);
    if (ended.exit) return *ended.exit;
    resave_report report = report_of(host.context(), ended.result);
    print_problems(report);
    const wide_string target = host.context().placement.new_project_path;
    std::optional<verification> found;
    if (request.verify && (report.exit == done || report.exit == problems)) {
        found = verified(host);
        add(*found, report);
    }
    if (options.json)
        print_json(report, found);
    else
        print_text(report, target, request.list_files);
    return report.exit;
}

int plan_resave(const resave_request& request, const common_options& options) {
    trial_disk disk;
    const platform::system_override in_force(disk);
    session host(options, request.answers);
    resave_entity_services copying;
    collect_resave_entity_services(copying);
    if (!copying.empty()) {
        complain("--dry-run cannot be combined with a --bundle that copies its own files");
        return wrong_use;
    }
    const run_end_or_exit ended = run(host, request, options);
    if (ended.exit) return *ended.exit;
    const resave_plan plan = plan_of(host.context(), ended.result, disk);
    complain_of(plan);
    if (options.json)
        print_json(plan);
    else
        print_text(plan, host.context().placement.new_project_path);
    return plan.report.exit;
}

} // namespace vestra::command
