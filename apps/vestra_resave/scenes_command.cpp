#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <unordered_set>

#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "layers/layer_files.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

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

// The run works in the current folder, so its paths are names.
void print_outcome(const project_context& context, const wide_string& folder, bool quiet) {
    std::unordered_set<wide_string> failed;
    for (problem each : problems_of(context)) {
        each.new_path = path_join(folder, each.new_path);
        if (each.kind == name_of(fact_kind::not_written)) failed.insert(path_key(each.new_path));
        complain(line_of(each));
    }
    std::unordered_set<wide_string> seen;
    for (const placed_file& scene : context.placement.placed) {
        const wide_string path = path_join(folder, scene.new_path), key = path_key(path);
        if (!quiet && !failed.contains(key) && seen.insert(key).second) std::cout << one_line(path) << '\n';
    }
}

} // namespace

int write_scenes(const scenes_request& request, const common_options& options) {
    session host(options, {});
    if (!host.load(request.project)) return wrong_use;
    project_context& context = host.context();
    const wide_string folder = platform::drive_path(request.folder);
    // The run writes into the current folder: nothing was resaved before it.
    if (const platform::outcome entered = platform::set_current_folder(folder); !entered) {
        complain(one_line(folder) + ": could not be entered: " + one_line(entered.text()));
        return not_saved;
    }
    scene_file_settings settings = request.settings;
    if (settings.on_exists == on_existing_file::rewrite &&
        would_replace_project_file(scene_files(context, folder), context))
        return wrong_use;
    settings.folder = folder.c_str();
    const run_result result = context.create_scene_files(settings);
    print_outcome(context, folder, options.quiet);
    return result.written ? done : not_saved;
}

} // namespace vestra::command
