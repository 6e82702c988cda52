// Each selected 2D scene of a loaded project to a file of its own.
#include "operations/scene_files_run.h"

#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/project_context.h"

namespace vs::project_resave {

bool project_context::create_scene_files(const scene_file_settings& settings) {
    if (!project) {
        show_error(501);
        return false;
    }
    const host_owned<vs_wait, &vs_wait_destroy> wait(vs_wait_wcreate(load_string(357).c_str()));
    options.reset();
    options.scene_file_on_exists = settings.on_exists;
    progress.clear_stop(); // of an earlier run: this one has no window in which it could be stopped
    for (const auto& root : tree) root->write_scene_file();
    show_message(514);
    return true;
}

} // namespace vs::project_resave
