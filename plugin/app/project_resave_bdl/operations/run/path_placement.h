// Decides where each source file goes. Finds the new place of each file of a run under one of five folder
// structures, creates its folder, and records the result: a file that occurs twice is copied once, and a
// stopped run can remove what it created. project_context has the only one. Main thread only.
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
    // All pointers must outlive this object. Only `source` may be null.
    path_placement(run_progress* run, log_file* conflicts, run_report* facts, const resave_options* choices,
                   source_guard* source = nullptr)
        : progress(run), log(conflicts), report(facts), options(choices), guard(source) {}
    path_placement(const path_placement&) = delete;
    path_placement& operator=(const path_placement&) = delete;

    // The parts of the run that this object uses; not owned.
    run_progress* progress;
    log_file* log; // receives every conflict, as does the report
    run_report* report;
    const resave_options* options;
    source_guard* guard;
    placed_files placed;                      // everything placed in this run
    std::vector<wide_string> created_folders; // deepest first for each call of `new_path`
    made_files made;                          // what a stop removes, besides those folders
    // The paths of the run.
    wide_string source_project_path;
    wide_string source_folder; // with a separator at the end, as `new_folder`
    wide_string new_project_path;
    wide_string new_folder;
    wide_string type_folder = wide_string(no_type_folder); // see type_folder_scope
    wide_string log_path;
    common_directory common;                  // of all selected files of the run
    common_directory* scene_common = nullptr; // of the current scene; owned by its unit
    wide_string scene_folder;                 // of the current scene, relative to `new_folder`
    placed_files scene_placed;                // for the current scene; used only with a folder per scene

    // Clears the files, folders, common directory and scene of a run. The paths, the type folder and
    // `scene_placed` stay.
    void reset();
    // Calls `reset` and sets the loaded project.
    void set_source(const wide_string& path);
    // Calls `reset` and sets the new project of the run.
    void set_output(const wide_string& path);

    // Returns the new path of a file placed before (in this scene, with a folder for each scene); empty if it
    // was not placed.
    wide_string lookup_placed(const wide_string& source) const;
    bool is_placed(const wide_string& source) const;
    // Records a file's new path. An empty old path is a file without a source.
    void register_placed(const wide_string& old_path, const wide_string& new_path);

    // Returns the new path of `source`, under a name that is free on the disk, and creates its folder. May
    // ask the user for the name. Empty if the structure has no place for the file. A folder that could not be
    // created is not reported here: copying into it fails, and `folder_failure` has the reason.
    wide_string new_path(const wide_string& source);
    // Returns why the folder of a path that `new_path` returned could not be created; success if it could.
    platform::outcome folder_failure(const wide_string& path) const;
    // Returns `path`, or the first of its numbered names where nothing exists and that neither the source nor
    // the run itself needs. Set `is_written` for a file that the run writes itself: then names of links,
    // which could lead into the source, are not free either.
    wide_string next_free_name(const wide_string& path, bool is_written = false);
    // Returns the new reference of a layout page; only computes the text.
    wide_string folder_for(const wide_string& source);

    // Begins a scene. If a folder with this name exists, the scene's folder gets a number. An empty `name`
    // means that the scene has no folder.
    void set_scene(common_directory* scene, const wide_string& name);
    // Ends the scene.
    void clear_scene();
    // Returns the folder of the current scene if each scene has a folder, else that of the new project; with
    // a separator at the end.
    wide_string current_output_folder() const;

private:
    // Returns the register for look-ups: the scene's with a folder for each scene, else the run's.
    const placed_files& register_in_force() const;
    // True if no copy may get this path.
    bool is_taken(const wide_string& path) const;
    // Returns the place under the structure of the run; empty for an unknown structure. It may be taken.
    wide_string place(const wide_string& source);
    wide_string place_from_project_folder(const wide_string& source) const;
    wide_string place_inside_or_by_type(const wide_string& source) const;
    wide_string in_type_folder(const wide_string& source) const;
    wide_string place_in_scene_folder(const wide_string& source);
    // Returns the path, moved to a numbered folder if it would be inside a data set.
    wide_string beside_data_sets(const wide_string& path);
    // Returns the first free numbered name of a folder.
    static wide_string numbered_folder(const wide_string& path);
    // Returns another path for a copy whose place is taken, from the user or by number.
    wide_string resolve_conflict(const wide_string& path, const wide_string& source);

    // The last number given to a path in this run, so that many files with the same name stay cheap.
    std::unordered_map<wide_string, uint32_t> last_numbers_;
    std::unordered_map<wide_string, wide_string>
        homes_; // path keys of folders, and what replaces them; empty if nothing does
    std::unordered_map<wide_string, wide_string> set_homes_;             // the same for data sets
    std::unordered_map<wide_string, platform::outcome> folder_failures_; // by path_key of the folder
};

// Sets the type folder while one file is being placed.
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
