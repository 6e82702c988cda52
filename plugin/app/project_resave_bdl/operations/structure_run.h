// Settings of the run that writes a project's structure as text.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

// Filled by the front end when the user starts; lives for the call.
struct structure_settings {
    const char16_t* output_path =
        nullptr; // of the text file, not owned; the front end sees that it is not empty
    bool write_layer_names = false;
    bool write_table_names = false;
    bool write_table_columns = false; // of TOS files and shape layers; those of a DBF table stand in any case
    bool write_layout_layers = false;
    bool write_legend_content = false;
    bool write_legend_columns = false;
    bool write_file_paths = false;
    wide_string indent_text;    // a level of depth is this text, so many times
    uint32_t indent_repeat = 1; // 0 gives no indent
};

} // namespace vs::project_resave
