// Compares the letter case of every path that a loaded project stores with the spelling on the disk.
#include "framework/resources/strings.h"
#include "operations/project_context.h"

namespace vs::project_resave {

bool project_context::check_path_case(const wide_string& report_path) {
    if (!project) {
        show_error(501);
        return false;
    }
    case_differs = false;
    const bool completed = write_text(report_path, [this] {
        if (progress.is_stopped()) return;
        for (const auto& root : tree) root->check_path_case(&case_differs);
    });
    if (completed) show_message(case_differs ? 529 : 530);
    return true;
}

} // namespace vs::project_resave
