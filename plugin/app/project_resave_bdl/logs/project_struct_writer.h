// Text file of indented lines.
#pragma once

#include <cstdint>

#include "logs/txt_file.h"

namespace vs::project_resave {

class project_struct_writer : public txt_file {
public:
    void indent();
    // Stops at the left edge.
    void unindent();
    // The text of this number at the present depth.
    void write_line(uint32_t row);
    void write_line(const wide_string& text, uint32_t at_depth);

    uint32_t depth = 0;
    uint32_t indent_width = 4; // blanks for each level
};

} // namespace vs::project_resave
