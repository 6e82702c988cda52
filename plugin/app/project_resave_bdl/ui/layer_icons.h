// The pictures of the layer types of one kind of scene, for the rows of layers.
#pragma once

#include <string_view>

#include "framework/resources/layer_type_loader.h"

namespace vs::project_resave::detail {

class layer_icons {
public:
    // `kind` is the id of the services that know the types: "vestra/scene/2d" or "vestra/scene/3d".
    explicit layer_icons(wide_string kind) : scene_kind_(std::move(kind)) {}

    // Each asks the host for the list when it is first wanted, and never again.
    uint32_t count() { return static_cast<uint32_t>(list().size()); }
    // Place of the type, or -1.
    int32_t index_of(std::string_view layer_type);
    // Null outside of the list.
    masked_bitmap_impl* at(int32_t index);

private:
    std::vector<layer_type_bitmap>& list();

    const wide_string scene_kind_;
    bool is_loaded_ = false; // a list that came back empty counts
    std::vector<layer_type_bitmap> types_;
};

} // namespace vs::project_resave::detail
