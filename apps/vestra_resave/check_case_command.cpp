#include "apps/vestra_resave/check_case_command.h"

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/output_file.h"
#include "platform/system.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

int check_case(const std::string& project, const std::string& report, const common_options& options) {
    session host(options, stopped_without_question());
    if (!host.load(project)) return wrong_use;
    project_context& context = host.context();
    const wide_string path = platform::drive_path(report);
    if (const int end = create_text_file(path, context)) return end;
    context.check_path_case(path);
    if (context.progress.stopped) return stopped;
    if (!context.case_differs) return done;
    if (platform::current_system().file_size(path) != 0) return problems;
    complain(one_line(path) + ": the differences could not be written");
    return not_saved;
}

} // namespace vestra::command
