// Each selected 2D scene of a loaded project to a file of its own.
#include "operations/run_settings.h"

#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_msgs.h"
#include "operations/project_context.h"

namespace vs::project_resave {

run_result project_context::create_scene_files(const scene_file_settings& settings) {
    if (!project) {
        progress.questions->show_error(text::project_loaded_incorrectly);
        return {};
    }
    const host_owned<vs_wait, &vs_wait_destroy> wait(vs_wait_wcreate(load_string(text::please_wait).c_str()));
    report.restart(facts_of_tree_);
    options.reset();
    options.scene_file_on_exists = settings.on_exists;
    progress.clear_stop(); // of an earlier run: this one has no window in which it could be stopped
    for (const auto& root : tree) root->write_scene_file();
    progress.questions->show_message(text::scene_files_saved);
    return {run_end::done, !report.has(fact_kind::not_written), {}};
}

} // namespace vs::project_resave
