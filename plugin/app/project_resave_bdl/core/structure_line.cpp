#include "core/structure_line.h"

#include "operations/project_context.h"

namespace vs::project_resave {

wide_string with_path(project_context& context, wide_string caption, const wide_string& path) {
    const resave_options& options = context.options;
    if (!options.write_file_paths) return caption;
    caption += options.indent_unit.empty() ? options.separator_fallback : options.indent_unit;
    return caption + path;
}

} // namespace vs::project_resave
