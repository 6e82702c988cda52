// Registers the bundle's texts and pictures, since a library has no resource section on POSIX.
#include <array>

#include "bundle_images.inc"
#include "platform/posix/resource_registry.h"

namespace vs::project_resave {

namespace {

constexpr uint32_t english = 50000;

// NOLINTBEGIN(bugprone-macro-parentheses): a list of rows is no expression
#define VS_TEXT(id, name, base, translated)                                                                  \
    platform::text_row{id, base}, platform::text_row{id + english, translated},
#define VS_TEXT_BASE_ONLY(id, name, base) platform::text_row{id, base},
// NOLINTEND(bugprone-macro-parentheses)
constexpr platform::text_row rows[] = {
#include "framework/resources/texts/bundle_texts.inc"
#include "framework/resources/texts/toolkit_texts.inc"
};
#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY

// Runs when the library is loaded, before any look-up.
const bool registered = [] {
    platform::register_text_rows(platform::own_module(), rows);
    for (const auto& [id, bytes] : bundle_images) platform::register_image(platform::own_module(), id, bytes);
    return true;
}();

} // namespace

} // namespace vs::project_resave
