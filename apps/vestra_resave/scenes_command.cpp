#include "apps/vestra_resave/scenes_command.h"

#include <iostream>
#include <unordered_set>

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/project_files.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/volumes.h"
#include "reference_host/shell/settings.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr uint32_t rewrite = 0;

// Where the run puts the scenes; none is left out of the selection here.
std::vector<wide_string> scene_files(project_context& context, const wide_string& folder) {
    std::vector<wide_string> paths;
    vs_scns_2d* scenes = vs_prj_get_scns_2d_ptr(context.project_handle());
    for (uint32_t index = 0; index < vs_scns_2d_get_size(scenes); ++index) {
        const wide_string caption = host_string(&vs_scn_2d_get_wcaption, vs_scns_2d_get(scenes, index));
        paths.push_back(caption_file_path(folder, caption, u"._sn"));
    }
    return paths;
}

// The run tells nobody of a failure. Nothing was placed before it.
int report_written(const project_context& context, const wide_string& folder, bool quiet) {
    int end = done;
    std::unordered_set<wide_string> seen;
    for (const placed_file& scene : context.placement.placed) {
        const wide_string path = path_join(folder, scene.new_path);
        const bool is_there = path_exists(scene.new_path);
        if (!is_there) {
            complain("not written: " + one_line(path));
            end = not_saved;
        } else if (!seen.insert(path_key(path)).second) {
            complain("written over by a further scene of this name: " + one_line(path));
        } else if (!quiet) {
            std::cout << one_line(path) << '\n';
        }
    }
    for (const shell::refused_file& refused : shell::settings().refused_writes)
        complain(one_line(refused.reason));
    return shell::settings().refused_writes.empty() ? end : not_saved;
}

} // namespace

int write_scenes(const scenes_wish& wish, const common_options& options) {
    session host(options, {});
    if (!host.load(wish.project)) return wrong_use;
    project_context& context = host.context();
    const wide_string folder = platform::drive_path(wish.folder);
    // The run writes into the current folder: nothing was resaved before it.
    if (!platform::set_current_folder(folder)) {
        complain(one_line(folder) + ": there is no such folder");
        return not_saved;
    }
    scene_file_settings settings = wish.settings;
    if (settings.on_exists == rewrite && would_replace_project_file(scene_files(context, folder), context))
        return wrong_use;
    settings.folder = folder.c_str();
    context.create_scene_files(settings);
    return report_written(context, folder, options.quiet);
}

} // namespace vestra::command
