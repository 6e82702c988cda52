// Resources of a library by number: rows of text, and images. On Windows they are what the resource compiler
// put into the library; on POSIX they are registered (posix/resource_registry.h) before the first look-up.
// Look-up takes constant time. All functions may be called from any thread.
#pragma once

#include <cstdint>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// A loaded library, not owned; null for one that is not loaded.
struct module_handle {
    void* value = nullptr;

    explicit operator bool() const { return value != nullptr; }
    bool operator==(const module_handle&) const = default;
};

// Returns the library that contains the bundle's own code.
module_handle own_module();

// Returns the host's library "vsk_basic"; null while it is not loaded (POSIX: not registered).
module_handle host_basic_module();

// Points `row` at the text with this number, as it is stored: it may include a trailing zero, and no zero
// follows it. The text is valid as long as its library. Returns false and leaves `row` unchanged for a null
// module and if the row is missing or empty.
bool find_text_row(module_handle module, uint32_t id, wide_view& row);

// A decoded image, rows top-down and without padding.
struct image {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint8_t> colour; ///< three bytes for each pixel: blue, green, red
    std::vector<uint8_t> mask;   ///< one byte for each pixel: 255 opaque, 0 transparent
};

// Decodes a bitmap; its mask is opaque throughout. Returns false and leaves `result` unchanged for a null
// module and if the bitmap is missing or cannot be decoded.
bool load_image(module_handle module, uint32_t id, image& result);

// Decodes an icon with its mask, or a cursor if there is no such icon. Fails as `load_image` does.
bool load_icon_image(module_handle module, uint32_t id, image& result);

} // namespace vs::project_resave::platform
