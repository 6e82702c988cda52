#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/problems.h"
#include "operations/project_context.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

int write_structure(const structure_request& request, const common_options& options) {
    session host(options, {.on_stop = stop_answer::erase_created}); // a text is never kept
    if (!host.load(request.project)) return wrong_use;
    project_context& context = host.context();
    const wide_string path = platform::drive_path(request.text_file);
    if (const int end = create_text_file(path, context)) return end;
    structure_settings settings = request.settings;
    settings.output_path = path.c_str();
    const run_result result = context.save_structure(settings);
    if (result.end == run_end::stopped) {
        complain("interrupted; the text file was removed");
        return stopped;
    }
    if (result.written) return done;
    for (const problem& each : problems_of(context)) complain(line_of(each));
    return not_saved;
}

using namespace vs::project_resave;

int check_case(const std::string& project, const std::string& report, const common_options& options) {
    session host(options, {.on_stop = stop_answer::erase_created}); // a report is never kept
    if (!host.load(project)) return wrong_use;
    project_context& context = host.context();
    const wide_string path = platform::drive_path(report);
    if (const int end = create_text_file(path, context)) return end;
    const run_result result = context.check_path_case(path);
    if (result.end == run_end::stopped) {
        complain("interrupted; the text file was removed");
        return stopped;
    }
    if (result.written) return context.case_differs ? problems : done;
    for (const problem& each : problems_of(context)) complain(line_of(each));
    return not_saved;
}

} // namespace vestra::command
