#include "logs/project_struct_writer.h"

#include "framework/resources/strings.h"

namespace vs::project_resave {

void project_struct_writer::indent() { ++depth; }

void project_struct_writer::unindent() {
    if (depth > 0) --depth;
}

void project_struct_writer::write_line(uint32_t row) {
    write_line(load_string(static_cast<int32_t>(row)), depth);
}

void project_struct_writer::write_line(const wide_string& text, uint32_t at_depth) {
    write(wide_string(size_t{indent_width} * at_depth, u' ') + text, true);
}

} // namespace vs::project_resave
