#include "services/resave_graphics_layer.h"

#include "framework/resources/strings.h"
#include "core/copying.h"

namespace vs::project_resave {

namespace {

constexpr int32_t graphics_folder_text = 409;

} // namespace

wide_string resave_graphics_layer::default_folder() { return load_string(graphics_folder_text); }

bool resave_graphics_layer::copy_files(const wide_string& source, const wide_string& target) {
    return copy_file_and_projection(source, target, *context);
}

} // namespace vs::project_resave
