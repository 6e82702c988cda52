#include "services/resave_graphics_layer.h"

#include "core/copying.h"
#include "framework/resources/strings.h"

namespace vs::project_resave {

wide_string resave_graphics_layer::default_folder() { return load_string(text::graphics_folder); }

bool resave_graphics_layer::copy_files(const wide_string& source, const wide_string& target) {
    return copy_file_and_projection(source, target, *context);
}

} // namespace vs::project_resave
