// What the runs that write a text file have in common: progress, the file, and a stop.
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"

namespace vs::project_resave {

bool project_context::write_text(const wide_string& path, const std::function<void()>& lines) {
    progress.start(total_units);
    progress.set_caption(357);
    progress.show();
    log.open(path, true);
    const auto end = [this] {
        log.close();
        progress.finish();
    };
    try {
        lines();
    } catch (...) { // out of memory: no window stays, and the next text begins at the left
        while (log.unindent() > 0) {
        }
        end();
        throw;
    }
    end();
    if (!progress.is_stopped()) return true;
    remove_tree(path);
    show_message(513);
    return false;
}

} // namespace vs::project_resave
