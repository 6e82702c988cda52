// The choices of a run: the form that a front end fills in, and the copy that every unit reads.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

class run_progress;

// Where the files go below the new project's folder.
enum structure : uint32_t {
    by_type = 0,                // one folder for each type of data
    from_project_folder = 1,    // as they are relative to the project file
    project_tree_else_type = 2, // the same inside the project's folder; by type for the rest
    from_common_top = 3,        // relative to the top folder that all files share
    folder_per_scene = 4,       // one folder for each scene, with its own copy of shared files
};

// What to do if a scene file exists.
enum class on_existing_file : uint32_t { rewrite = 0, new_name = 1 };

// The answer to the question whether to add referenced elements.
enum class add_referenced_answer { not_asked, yes, no };

// Filled in by the front end when the user starts; used only during the call.
struct resave_settings {
    const wide_string* output_path = nullptr; // path of the new project file; not owned
    bool rename_on_conflict = true;           // take the next free name; else ask at each conflict
    structure structure_variant = by_type;
    bool delete_lost_sources = false; // remove elements whose source is lost from the new project
    bool only_selected = true;        // never read: elements that are not selected are always left out
    bool write_log = false;
    bool save_scene_files = false;
    bool save_layer_files = false;
    bool consider_project_file = true; // include the source project in the common directory
    bool lower_case = false;
};

// The choices of the current run, which every unit reads.
struct resave_options {
    // `run` must outlive this object; it hides its window while the user is asked.
    explicit resave_options(run_progress* run) : progress(run) {}

    // Restores the values below; the progress and the separator stay.
    void reset();
    // Copies the settings; the answer about referenced elements does not change.
    void assign(const resave_settings& settings);
    // Returns whether to add the elements that selected ones refer to. Asks the user once in a run, with the
    // progress window hidden, and remembers the answer.
    bool ask_add_referenced();

    run_progress* progress; // not owned
    structure structure_variant = by_type;
    bool rename_on_conflict = true;
    bool delete_lost_sources = false;
    bool save_scene_files = false;
    bool save_layer_files = false;
    add_referenced_answer add_referenced = add_referenced_answer::not_asked;
    bool consider_project_file = false;
    bool lower_case = false;

    // The options of the structure text.
    bool write_layer_names = false;
    bool write_table_names = false;
    bool write_table_columns = false;
    bool write_file_paths = false;
    bool write_layout_layers = true;
    bool write_legend_content = true;
    bool write_legend_columns = false;
    wide_string indent_unit = u"    ";
    wide_string separator_fallback = u" "; // separates a caption and a path if there is no indent

    on_existing_file scene_file_on_exists = on_existing_file::rewrite;
};

} // namespace vs::project_resave
