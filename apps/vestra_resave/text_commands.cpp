#include <functional>

#include "apps/vestra_resave/commands.h"
#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// Runs `write`, which writes the text file at its path; `done` if it did and nothing else went wrong.
int write_text(const std::string& project, const std::string& text_file, const common_options& options,
               const std::function<run_result(project_context&, const wide_string&)>& write) {
    session host(options, {.on_stop = stop_answer::erase_created}); // a text is never kept
    if (const auto early = host.load(project)) return end_with(*early, options);
    project_context& context = host.context();
    if (const auto early = refuse_output(text_file)) return end_with(*early, options);
    const wide_string path = platform::drive_path(text_file);
    if (const auto early = create_text_file(path, context)) return end_with(*early, options);
    const run_result result = write(context, path);
    const std::vector<problem> found = host.reading_problems();
    for (const problem& each : found) complain(line_of(each));
    if (result.end == run_end::stopped) {
        complain(path_exists(path) ? "interrupted; the text file could not be removed: " + printed(path)
                                   : "interrupted; the text file was removed");
        return stopped;
    }
    if (!result.written) return not_saved;
    return found.empty() ? done : problems;
}

} // namespace

int write_structure(const structure_request& request, const common_options& options) {
    return write_text(request.project, request.text_file, options,
                      [&](project_context& context, const wide_string& path) {
                          structure_settings settings = request.settings;
                          settings.output_path = path.c_str();
                          return context.save_structure(settings);
                      });
}

int check_case(const std::string& project, const std::string& report, const common_options& options) {
    bool differs = false;
    const int end =
        write_text(project, report, options, [&](project_context& context, const wide_string& path) {
            run_result result = context.check_path_case(path);
            differs = context.case_differs;
            return result;
        });
    return end == done && differs ? problems : end;
}

} // namespace vestra::command
