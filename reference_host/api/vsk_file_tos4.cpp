#include "host/vsk_file_tos4.h"

#include "reference_host/api/calls.h"
#include "reference_host/api/objects.h"
#include "reference_host/datasets/tos_reader.h"

using namespace vestra::api;

vs_tos4_file* vs_tos4_file_open_w(const char16_t* path, int32_t mode) {
    if (mode != 1) return nullptr;
    return guarded([&]() -> vs_tos4_file* {
        auto file = vestra::datasets::read_tos(vestra::wide_string(text_of(path)));
        if (!file) return nullptr;
        return create<vs_tos4_file>(open_tos_file{{}, std::move(file->properties)});
    });
}

void vs_tos4_file_close(vs_tos4_file* file) { destroy(file); }

uint32_t vs_tos4_get_prop_count(vs_tos4_file* file) {
    return on(file, [](auto& tos) { return static_cast<uint32_t>(tos.properties.size()); });
}

void vs_tos4_get_prop_caption_w(vs_tos4_file* file, uint32_t index, vs_string_adp* out) {
    tell(out, on(file, [&](auto& tos) {
             return index < tos.properties.size() ? &tos.properties[index] : nullptr;
         }));
}
