// The source of a library's resources on POSIX, where libraries have no resource section: compiled tables and
// files held in memory are registered, usually by a static initialiser of the library. May be called from any
// thread.
#pragma once

#include <cstdint>
#include <span>

#include "platform/resources.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// One text and its number. The text is not owned.
struct text_row {
    uint32_t id;
    wide_view text;
};

// Bitmaps are always opaque; icons have a mask. The two are numbered separately.
enum class image_kind { bitmap, icon };

// Makes the module "vsk_basic" present and returns it; called by the host. A second call changes nothing.
module_handle register_host_basic_module();

// A program that is the host exports this function to pass the rows of "vsk_basic" to the libraries it loads;
// the rows are valid for the life of the process.
struct text_row_list {
    const text_row* first;
    size_t count;
};
using host_text_rows = text_row_list (*)();
inline constexpr const char* host_text_rows_name = "vs_host_text_rows";

// Adds rows to a module; a row that is registered again replaces the earlier one. The texts are not copied
// and must outlive the last look-up.
void register_text_rows(module_handle module, std::span<const text_row> rows);

// Adds an image in BMP form. As an icon it keeps its transparency (32 bits for each pixel). The bytes are
// not copied and must outlive the last look-up.
void register_image(module_handle module, uint32_t id, std::span<const unsigned char> bmp,
                    image_kind kind = image_kind::bitmap);

} // namespace vs::project_resave::platform
