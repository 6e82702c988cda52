// Resources of libraries on POSIX: the rows and images that static initialisers registered. Every library has
// its own copy of this registry, as each contains the platform layer.

#include "platform/resources.h"

#define STB_IMAGE_IMPLEMENTATION
#define STB_IMAGE_STATIC
#define STBI_ONLY_BMP
#define STBI_NO_STDIO
#include <dlfcn.h>
#include <stb/stb_image.h>

#include <memory>
#include <mutex>
#include <unordered_map>
#include <utility>

#include "platform/posix/resource_registry.h"

namespace vs::project_resave::platform {

namespace {

struct module_resources {
    std::unordered_map<uint32_t, wide_view> rows;
    std::unordered_map<uint32_t, std::span<const unsigned char>> bitmaps;
    std::unordered_map<uint32_t, std::span<const unsigned char>> icons;
};

struct registry {
    std::mutex mutex;
    module_resources own;
    module_resources host_basic;
    bool host_basic_is_present = false;
};

registry& registered() {
    static registry all;
    return all;
}

module_resources* resources_of(module_handle module) { return static_cast<module_resources*>(module.value); }

bool decode(std::span<const unsigned char> bmp, bool is_opaque, image& result) {
    constexpr int channels = 4;
    int width = 0;
    int height = 0;
    const std::unique_ptr<stbi_uc, void (*)(void*)> pixels(
        stbi_load_from_memory(bmp.data(), static_cast<int>(bmp.size()), &width, &height, nullptr, channels),
        stbi_image_free);
    if (!pixels) return false;
    image decoded;
    decoded.width = static_cast<uint32_t>(width);
    decoded.height = static_cast<uint32_t>(height);
    const size_t count = size_t{decoded.width} * decoded.height;
    // The decoder returns red, green, blue; images are stored as a Windows bitmap is.
    decoded.colour.reserve(count * 3);
    decoded.mask.reserve(count);
    for (const stbi_uc* pixel = pixels.get(); decoded.mask.size() < count; pixel += channels) {
        decoded.colour.insert(decoded.colour.end(), {pixel[2], pixel[1], pixel[0]});
        decoded.mask.push_back(is_opaque ? 255 : pixel[3]);
    }
    result = std::move(decoded);
    return true;
}

bool load(module_handle module, uint32_t id, image_kind kind, image& result) {
    if (!module) return false;
    std::span<const unsigned char> bmp;
    {
        const std::lock_guard guard(registered().mutex);
        const bool is_bitmap = kind == image_kind::bitmap;
        const auto& images = is_bitmap ? resources_of(module)->bitmaps : resources_of(module)->icons;
        const auto found = images.find(id);
        if (found == images.end()) return false;
        bmp = found->second;
    }
    return decode(bmp, kind == image_kind::bitmap, result);
}

} // namespace

module_handle own_module() { return {&registered().own}; }

module_handle host_basic_module() {
    {
        const std::lock_guard guard(registered().mutex);
        if (registered().host_basic_is_present) return {&registered().host_basic};
    }
    // This copy of the platform layer is in a library, but the rows were registered in the program's copy.
    const auto rows_of_host = reinterpret_cast<host_text_rows>(::dlsym(RTLD_DEFAULT, host_text_rows_name));
    if (rows_of_host == nullptr) return {};
    const module_handle module = register_host_basic_module();
    const text_row_list list = rows_of_host();
    register_text_rows(module, {list.first, list.count});
    return module;
}

bool find_text_row(module_handle module, uint32_t id, wide_view& row) {
    if (!module) return false;
    const std::lock_guard guard(registered().mutex);
    const auto found = resources_of(module)->rows.find(id);
    if (found == resources_of(module)->rows.end() || found->second.empty()) return false;
    row = found->second;
    return true;
}

bool load_image(module_handle module, uint32_t id, image& result) {
    return load(module, id, image_kind::bitmap, result);
}

bool load_icon_image(module_handle module, uint32_t id, image& result) {
    return load(module, id, image_kind::icon, result);
}

module_handle register_host_basic_module() {
    const std::lock_guard guard(registered().mutex);
    registered().host_basic_is_present = true;
    return {&registered().host_basic};
}

void register_text_rows(module_handle module, std::span<const text_row> rows) {
    const std::lock_guard guard(registered().mutex);
    for (const text_row& row : rows) resources_of(module)->rows.insert_or_assign(row.id, row.text);
}

void register_image(module_handle module, uint32_t id, std::span<const unsigned char> bmp, image_kind kind) {
    const std::lock_guard guard(registered().mutex);
    const bool is_bitmap = kind == image_kind::bitmap;
    auto& images = is_bitmap ? resources_of(module)->bitmaps : resources_of(module)->icons;
    images.insert_or_assign(id, bmp);
}

} // namespace vs::project_resave::platform
