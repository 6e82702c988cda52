// Resources of libraries on Windows, decoded into the form that POSIX uses.

#include "platform/resources.h"

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <type_traits>
#include <utility>

#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

struct object_deleter {
    void operator()(HGDIOBJ object) const { DeleteObject(object); }
};
struct icon_deleter {
    void operator()(HICON icon) const { DestroyIcon(icon); }
};
using bitmap_owner = std::unique_ptr<std::remove_pointer_t<HBITMAP>, object_deleter>;
using icon_owner = std::unique_ptr<std::remove_pointer_t<HICON>, icon_deleter>;

HINSTANCE instance_of(module_handle module) { return static_cast<HINSTANCE>(module.value); }

struct plane {
    uint32_t width = 0;
    uint32_t height = 0;
    std::vector<uint8_t> pixels; // blue, green, red; top-down, no padding
};

bool read_plane(HBITMAP bitmap, plane& result) {
    BITMAP shape{};
    if (GetObjectW(bitmap, sizeof(shape), &shape) == 0) return false;
    const size_t row = static_cast<size_t>(shape.bmWidth) * 3;
    const size_t padded_row = (row + 3) / 4 * 4;
    const auto height = static_cast<size_t>(std::abs(shape.bmHeight));
    std::vector<uint8_t> padded(padded_row * height);

    BITMAPINFO form{};
    form.bmiHeader.biSize = sizeof(form.bmiHeader);
    form.bmiHeader.biWidth = shape.bmWidth;
    form.bmiHeader.biHeight = -static_cast<LONG>(height); // top-down
    form.bmiHeader.biPlanes = 1;
    form.bmiHeader.biBitCount = 24;
    const HDC screen = GetDC(nullptr);
    const int rows =
        GetDIBits(screen, bitmap, 0, static_cast<UINT>(height), padded.data(), &form, DIB_RGB_COLORS);
    ReleaseDC(nullptr, screen);
    if (rows == 0) return false;

    result = {static_cast<uint32_t>(shape.bmWidth), static_cast<uint32_t>(height), {}};
    result.pixels.reserve(row * height);
    for (size_t y = 0; y < height; ++y)
        result.pixels.insert(result.pixels.end(), padded.data() + y * padded_row,
                             padded.data() + y * padded_row + row);
    return true;
}

icon_owner open_icon(module_handle module, uint32_t id) {
    for (const UINT type : {IMAGE_ICON, IMAGE_CURSOR})
        if (const HANDLE found = LoadImageW(instance_of(module), MAKEINTRESOURCEW(id), type, 0, 0, 0))
            return icon_owner(static_cast<HICON>(found));
    return {};
}

// An icon without colours stores them in the lower half of its mask.
plane take_lower_half(plane& mask) {
    plane lower{mask.width, mask.height / 2, {}};
    mask.height -= lower.height;
    const auto middle = mask.pixels.begin() + static_cast<ptrdiff_t>(size_t{mask.width} * mask.height * 3);
    lower.pixels.assign(middle, mask.pixels.end());
    mask.pixels.erase(middle, mask.pixels.end());
    return lower;
}

// The operating system's calls would use the lower 16 bits of a larger number and find another resource.
bool is_resource_id(uint32_t id) { return id <= 0xFFFF; }

} // namespace

module_handle own_module() {
    static const char inside = 0;
    constexpr DWORD flags =
        GET_MODULE_HANDLE_EX_FLAG_FROM_ADDRESS | GET_MODULE_HANDLE_EX_FLAG_UNCHANGED_REFCOUNT;
    HMODULE module = nullptr;
    GetModuleHandleExW(flags, reinterpret_cast<LPCWSTR>(&inside), &module);
    return {module};
}

module_handle host_basic_module() { return {GetModuleHandleW(L"vsk_basic.dll")}; }

bool find_text_row(module_handle module, uint32_t id, wide_view& row) {
    if (!module || !is_resource_id(id)) return false;
    const wchar_t* text = nullptr;
    // With a buffer of size 0 the call returns a pointer to the row itself.
    const int length = LoadStringW(instance_of(module), id, reinterpret_cast<LPWSTR>(&text), 0);
    if (length <= 0 || text == nullptr) return false;
    row = wide_view(text16(text), static_cast<size_t>(length));
    return true;
}

bool load_image(module_handle module, uint32_t id, image& result) {
    if (!module || !is_resource_id(id)) return false;
    const HANDLE found =
        LoadImageW(instance_of(module), MAKEINTRESOURCEW(id), IMAGE_BITMAP, 0, 0, LR_CREATEDIBSECTION);
    const bitmap_owner bitmap(static_cast<HBITMAP>(found));
    plane colour;
    if (!bitmap || !read_plane(bitmap.get(), colour)) return false;
    std::vector<uint8_t> mask(size_t{colour.width} * colour.height, 255);
    result = {colour.width, colour.height, std::move(colour.pixels), std::move(mask)};
    return true;
}

bool load_icon_image(module_handle module, uint32_t id, image& result) {
    if (!module || !is_resource_id(id)) return false;
    const icon_owner icon = open_icon(module, id);
    ICONINFO planes{};
    if (!icon || !GetIconInfo(icon.get(), &planes)) return false;
    const bitmap_owner mask_bitmap(planes.hbmMask);
    const bitmap_owner colour_bitmap(planes.hbmColor);
    plane mask;
    plane colour;
    if (!read_plane(mask_bitmap.get(), mask)) return false;
    if (!colour_bitmap)
        colour = take_lower_half(mask);
    else if (!read_plane(colour_bitmap.get(), colour))
        return false;
    if (colour.width != mask.width || colour.height != mask.height) return false;

    // In an icon's mask, black is opaque.
    std::vector<uint8_t> opacity(size_t{mask.width} * mask.height);
    for (size_t i = 0; i < opacity.size(); ++i) opacity[i] = mask.pixels[i * 3] == 0 ? 255 : 0;
    result = {colour.width, colour.height, std::move(colour.pixels), std::move(opacity)};
    return true;
}

} // namespace vs::project_resave::platform
