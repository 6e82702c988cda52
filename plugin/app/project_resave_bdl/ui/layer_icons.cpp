#include "ui/layer_icons.h"

#include <algorithm>

namespace vs::project_resave::detail {

std::vector<layer_type_bitmap>& layer_icons::list() {
    if (!is_loaded_) {
        is_loaded_ = true;
        types_ = layer_type_loader::load({scene_kind_});
    }
    return types_;
}

int32_t layer_icons::index_of(std::string_view layer_type) {
    const auto& known = list();
    const auto row = std::find_if(known.begin(), known.end(), [&](const layer_type_bitmap& type) {
        return type.layer_type == layer_type;
    });
    return row == known.end() ? -1 : static_cast<int32_t>(row - known.begin());
}

masked_bitmap_impl* layer_icons::at(int32_t index) {
    auto& known = list();
    return index >= 0 && static_cast<uint32_t>(index) < known.size()
               ? &known[static_cast<uint32_t>(index)].bitmap
               : nullptr;
}

} // namespace vs::project_resave::detail
