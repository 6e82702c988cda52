#include "apps/vestra_resave/commands.h"

#include <algorithm>
#include <iostream>
#include <unordered_set>

#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// The run works in the current folder, so its paths are names. Returns true if nothing went wrong.
bool print_outcome(session& host, const wide_string& folder, bool quiet) {
    std::vector<problem> all = host.reading_problems();
    for (problem& each : all) {
        if (!each.new_path.empty()) each.new_path = path_join(folder, each.new_path);
        complain(line_of(each));
    }
    const std::unordered_set<wide_string> failed = unwritten_keys(all);
    std::unordered_set<wide_string> seen;
    for (const placed_file& scene : host.context().placement.placed) {
        const wide_string path = path_join(folder, scene.new_path), key = path_key(path);
        if (!quiet && !failed.contains(key) && seen.insert(key).second) std::cout << printed(path) << '\n';
    }
    return std::ranges::all_of(all, &is_notice);
}

} // namespace

int write_scenes(const scenes_request& request, const common_options& options) {
    session host(options, {});
    if (const auto early = refuse_share(request.folder)) return end_with(*early, options);
    if (const auto early = host.load(request.project)) return end_with(*early, options);
    project_context& context = host.context();
    const wide_string folder = as_on_disk(platform::drive_path(request.folder));
    // The run writes into the current folder: nothing was resaved before it.
    if (const platform::outcome entered = platform::set_current_folder(folder); !entered) {
        complain(printed(folder) + ": could not be entered: " + one_line(entered.text()));
        return not_saved;
    }
    scene_file_settings settings = request.settings;
    settings.folder = folder.c_str();
    const run_result result = context.create_scene_files(settings);
    const bool went_well = print_outcome(host, folder, options.quiet);
    if (!result.written) return not_saved;
    return went_well ? done : problems;
}

} // namespace vestra::command
