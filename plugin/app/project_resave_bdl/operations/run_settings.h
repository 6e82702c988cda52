// Settings of the runs that write texts and scene files. The front end fills them in when the user starts;
// they are used only during the call.
#pragma once

#include <cstdint>

#include "operations/run/resave_options.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// The structure of a project as text.
struct structure_settings {
    const char16_t* output_path = nullptr; // the text file; not owned; the front end rejects an empty path
    bool write_layer_names = false;
    bool write_table_names = false;
    bool write_table_columns = false; // of TOS files and shape layers; those of DBF tables are always written
    bool write_layout_layers = false;
    bool write_legend_content = false;
    bool write_legend_columns = false;
    bool write_file_paths = false;
    wide_string indent_text;    // one level of indent is this text, repeated
    uint32_t indent_repeat = 1; // 0 gives no indent
};

// A file for each 2D scene.
struct scene_file_settings {
    // Not owned; not empty. Kept as users know it: the run never reads it.
    const char16_t* folder = nullptr;
    on_existing_file on_exists = on_existing_file::rewrite;
};

} // namespace vs::project_resave
