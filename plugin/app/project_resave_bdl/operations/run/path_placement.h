// Where does a source file go? Finds the new place of each file of a run under one of five folder structures,
// makes its folder, and remembers what became of each file: one met twice is copied once, and a stopped run
// can erase what it made. One lives in project_context. User-interface thread only.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <vector>

#include "operations/run/made_files.h"
#include "operations/run/placed_files.h"
#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class log_file;
struct resave_options;
class run_progress;
class run_report;
class source_guard;

// The type folder while no file is being placed.
inline constexpr wide_view no_type_folder = u"files";

class path_placement {
public:
    // All of them must outlive this object.
    // `source` may be null.
    path_placement(run_progress* run, log_file* conflicts, run_report* facts, const resave_options* choices,
                   source_guard* source = nullptr)
        : progress(run), log(conflicts), report(facts), options(choices), guard(source) {}
    path_placement(const path_placement&) = delete;
    path_placement& operator=(const path_placement&) = delete;

    run_progress* progress;
    log_file* log; // every conflict goes here and into the report
    run_report* report;
    const resave_options* options;
    source_guard* guard;
    placed_files placed;                      // everything placed in this run
    std::vector<wide_string> created_folders; // deepest first within each call of `new_path`
    made_files made;                          // what a stop erases, beside those folders
    wide_string source_project_path;
    wide_string source_folder; // with its trailing separator, as `new_folder`
    wide_string new_project_path;
    wide_string new_folder;
    wide_string type_folder = wide_string(no_type_folder); // see type_folder_scope
    wide_string log_path;
    common_directory common;                  // of all selected files of the run
    common_directory* scene_common = nullptr; // of the scene in work; the scene's unit owns it
    wide_string scene_folder;                 // of the scene in work, relative to `new_folder`
    placed_files scene_placed;                // for the scene in work; used only with a folder per scene

    // Forgets the files, folders, common directory and scene of a run. The paths, the type folder and
    // `scene_placed` stay.
    void reset();
    // After `reset`, takes the project that was loaded.
    void set_source(const wide_string& path);
    // After `reset`, takes the new project of the run.
    void set_output(const wide_string& path);

    // The new path of a file placed before, for this scene if each scene has its folder; empty if none was.
    wide_string lookup_placed(const wide_string& source) const;
    bool is_placed(const wide_string& source) const;
    void register_placed(const wide_string& old_path, const wide_string& new_path);

    // The new path of `source`, under a name that is free on the disk, its folder created. It may ask the
    // user for the name. Empty if there is no place for it. A folder that cannot be created shows when
    // copying fails; `folder_failure` has the reason.
    wide_string new_path(const wide_string& source);
    // Why the folder of a path that `new_path` returned could not be created; success if it could.
    platform::outcome folder_failure(const wide_string& path) const;
    // `path`, or the first of its numbered names at which nothing exists and which neither the source nor the
    // run itself has a claim to.
    // With `is_written` for a file that the run writes itself, which a link could lead into the source.
    wide_string next_free_name(const wide_string& path, bool is_written = false);
    // The place of a layout page: only text, nothing is looked up or created.
    wide_string folder_for(const wide_string& source);

    // Begins a scene; a scene folder of this name that exists gets a number. An empty `name` means that the
    // scene has no folder.
    void set_scene(common_directory* scene, const wide_string& name);
    void clear_scene();
    // Folder of the scene in work if each scene has its own, else of the new project; with its separator.
    wide_string current_output_folder() const;

private:
    const placed_files& register_in_force() const;
    bool is_taken(const wide_string& path) const;
    wide_string place(const wide_string& source);
    wide_string place_from_project_folder(const wide_string& source) const;
    wide_string place_inside_or_by_type(const wide_string& source) const;
    wide_string in_type_folder(const wide_string& source) const;
    wide_string place_in_scene_folder(const wide_string& source);
    wide_string beside_data_sets(const wide_string& path);
    static wide_string numbered_folder(const wide_string& path);
    wide_string resolve_conflict(const wide_string& path, const wide_string& source);

    // The last number given to a path in this run, so that many files of one name stay cheap.
    std::unordered_map<wide_string, uint32_t> last_numbers_;
    std::unordered_map<wide_string, wide_string>
        homes_; // instead of those of these path_keys; empty for none
    std::unordered_map<wide_string, wide_string> set_homes_; // the same of data sets, one for all of each
    std::unordered_map<wide_string, platform::outcome> folder_failures_; // by path_key of the folder
};

// Names the folder for files of a type while one of them is being placed.
class type_folder_scope {
public:
    type_folder_scope(path_placement& placement, const wide_string& name) : placement_(placement) {
        placement.type_folder = name;
    }
    ~type_folder_scope() { placement_.type_folder = no_type_folder; }
    type_folder_scope(const type_folder_scope&) = delete;
    type_folder_scope& operator=(const type_folder_scope&) = delete;

private:
    path_placement& placement_;
};

} // namespace vs::project_resave
