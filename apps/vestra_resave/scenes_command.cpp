// The command `scenes`: saves the 2D scenes of a project as files, or lists them.
#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/trial_disk.h"
#include "apps/vestra_resave/words.h"
#include "core/layer_group_writer.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_entity.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::to_utf8;

namespace {

struct scene_row {
    wide_string uuid, caption, path;
};

struct scenes_report {
    int exit = done;
    std::string outcome;
    wide_string project, folder;
    std::vector<scene_row> scenes; // scenes whose files were written
    std::vector<problem> problems; // includes notices
};

// Returns the scenes in the order in which the files are written. A scene whose file must not be overwritten
// has no file. The run only records paths, in the same order, so this is how a path finds its scene.
std::vector<scene_row> scenes_of(project_context& context, const std::vector<problem>& all) {
    std::unordered_set<wide_string> refused;
    for (const problem& each : all)
        if (each.kind == name_of(fact_kind::not_written)) refused.insert(each.element.uuid);
    std::vector<scene_row> rows;
    vs_scns_2d* const scenes = vs_prj_get_scns_2d_ptr(context.project_handle());
    const uint32_t count = vs_scns_2d_get_size(scenes);
    for (uint32_t index = 0; index < count; ++index) {
        vs_scn_2d* const scene = vs_scns_2d_get(scenes, index);
        vs_entity* const entity = vs_entities_safe_upcast(vs_scn_2d_safe_upcast(scene));
        wide_string uuid = uuid_to_text(vs_entity_get_uuid(entity));
        if (!refused.contains(uuid))
            rows.push_back({std::move(uuid), host_string(&vs_scn_2d_get_wcaption, scene), {}});
    }
    return rows;
}

// If two scenes have the same file, it belongs to the later one. `folder` is prepended to paths that are only
// a name.
void add_scenes(session& host, const wide_string& folder, scenes_report& report) {
    const std::unordered_set<wide_string> failed = unwritten_keys(report.problems);
    const auto& placed = host.context().placement.placed;
    std::vector<scene_row> rows = scenes_of(host.context(), report.problems);
    std::unordered_set<wide_string> seen;
    for (size_t index = std::min(rows.size(), placed.size()); index-- > 0;) {
        scene_row& row = rows[index];
        row.path = path_join(folder, placed[index].new_path);
        const wide_string key = path_key(row.path);
        if (!failed.contains(key) && seen.insert(key).second) report.scenes.push_back(std::move(row));
    }
    std::ranges::reverse(report.scenes);
}

ordered_json json_of(const scenes_report& report) {
    ordered_json scenes = ordered_json::array();
    for (const scene_row& each : report.scenes)
        scenes.push_back({{"uuid", to_utf8(each.uuid)},
                          {"caption", to_utf8(each.caption)},
                          {"path", to_utf8(each.path)},
                          {"native_path", native_form(each.path)}});
    return {{"outcome", report.outcome},
            {"project", to_utf8(report.project)},
            {"native_project", native_form(report.project)},
            {"folder", to_utf8(report.folder)},
            {"native_folder", native_form(report.folder)},
            {"scenes", std::move(scenes)},
            {"written_over", json_of(report.problems, name_of(fact_kind::written_over))},
            {"problems", json_of(report.problems)}};
}

int finish(const scenes_report& report, bool lists, const common_options& options) {
    print(report.problems);
    if (options.json) {
        std::cout << json_of(report).dump(2) << '\n';
    } else if (lists) {
        for (const scene_row& each : report.scenes)
            std::cout << one_line(each.caption) << " -> " << printed(each.path) << '\n';
    } else if (!options.quiet) {
        for (const scene_row& each : report.scenes) std::cout << printed(each.path) << '\n';
        std::cout << say("%1: %2, %3 files", {say_known(report.outcome), printed(report.folder),
                                              std::to_string(report.scenes.size())})
                  << '\n';
    }
    return report.exit;
}

// The run writes to the current folder, so its paths are only names.
run_result write_files(project_context& context, const scenes_request& request, const wide_string& folder) {
    scene_file_settings settings = request.settings;
    settings.folder = folder.c_str();
    return context.create_scene_files(settings);
}

// As above on a disk in memory, which has no current folder. Without a target folder a new one is simulated
// and the paths are only names.
run_result list_files(project_context& context, const scenes_request& request, const wide_string& folder,
                      scenes_report& report, session& host) {
    trial_disk memory;
    const platform::system_override in_force(memory);
    wide_string place = folder;
    if (folder.empty()) {
        place = path_head(report.project) + u"\uFFFE"; // not used by any folder
        memory.create_folder(place);
    }
    // Kept as users know it: the run derives the folder from the path of the last resave and ignores its own
    // setting.
    context.placement.new_project_path = place; // the target folder of the scenes
    run_result result = write_files(context, request, place);
    report.problems = host.reading_problems();
    add_scenes(host, place, report);
    if (folder.empty())
        for (scene_row& each : report.scenes) each.path.erase(0, place.size() + 1);
    return result;
}

} // namespace

int write_scenes(const scenes_request& request, const common_options& options) {
    session host(options, {});
    if (const auto early = refuse_share(request.folder)) return end_with(*early, options);
    if (const auto early = host.load(request.project)) return end_with(*early, options);
    project_context& context = host.context();
    scenes_report report;
    report.project = context.placement.source_project_path;
    const wide_string folder = as_on_disk(platform::drive_path(request.folder));
    report.folder = folder;
    // The run writes to the current folder, because no resave has set another one.
    if (!folder.empty())
        // Also for --list, so that a folder that does not exist is reported in the same way.
        if (const platform::outcome entered = platform::set_current_folder(folder); !entered)
            return end_with({not_saved, {{own_kind::not_entered, {}, folder, {}, entered.text()}}}, options);
    run_result result;
    if (request.lists) {
        result = list_files(context, request, folder, report, host);
    } else {
        result = write_files(context, request, folder);
        report.problems = host.reading_problems();
        for (problem& each : report.problems)
            if (!each.new_path.empty()) each.new_path = path_join(folder, each.new_path);
        add_scenes(host, folder, report);
    }
    if (!result.written)
        report.exit = not_saved, report.outcome = "not written";
    else if (std::ranges::all_of(report.problems, &is_notice))
        report.outcome = "written";
    else
        report.exit = problems, report.outcome = "written with problems";
    if (request.lists) report.outcome = "would be " + report.outcome;
    return finish(report, request.lists, options);
}

} // namespace vestra::command
