// The choices of a run: what a front end fills in, and the core's copy that every unit reads.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

class run_progress;

// Where the files go below the folder of the new project.
enum structure : uint32_t {
    by_type = 0,                // folders by type of data
    from_project_folder = 1,    // as they lie seen from the project file
    project_tree_else_type = 2, // so inside the project's folder; folders by type for the rest
    from_common_top = 3,        // from the top folder that all files share
    folder_per_scene = 4,       // a folder for each scene, shared files once in each
};

// What to do with a scene file that exists.
enum class on_existing_file : uint32_t { rewrite = 0, new_name = 1 };

// The answer to the question whether referenced elements are added.
enum class add_referenced_answer { not_asked, yes, no };

// Filled by the front end when the user starts; lives for the call.
struct resave_settings {
    const wide_string* output_path = nullptr; // path of the new project file, not owned
    bool rename_on_conflict = true;           // take the next free name; else ask for each conflict
    structure structure_variant = by_type;
    bool delete_lost_sources = false; // an element whose source is lost leaves the new project
    bool only_selected = true;        // never read: what is not selected always stays out
    bool write_log = false;
    bool save_scene_files = false;
    bool save_layer_files = false;
    bool consider_project_file = true; // the source project counts in the common directory
    bool lower_case = false;
};

struct resave_options {
    explicit resave_options(run_progress* run) : progress(run) {}

    // Back to the values below; the progress and the separator stay.
    void reset();
    // Takes over what the settings say; the answer about referenced elements is left alone.
    void assign(const resave_settings& settings);
    // Whether elements that selected ones refer to are to be added. Asks the user once in a run, with the
    // progress window out of the way, and remembers the answer.
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

    // For the text of a project's structure.
    bool write_layer_names = false;
    bool write_table_names = false;
    bool write_table_columns = false;
    bool write_file_paths = false;
    bool write_layout_layers = true;
    bool write_legend_content = true;
    bool write_legend_columns = false;
    wide_string indent_unit = u"    ";
    wide_string separator_fallback = u" "; // between a caption and a path where there is no indent

    on_existing_file scene_file_on_exists = on_existing_file::rewrite;
};

} // namespace vs::project_resave
