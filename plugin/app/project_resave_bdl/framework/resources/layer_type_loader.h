// Pictures of layer types, as the services of the scene kinds know them.
#pragma once

#include <string>
#include <vector>

#include "framework/resources/resource_bitmap.h"

namespace vs::project_resave {

struct layer_type_bitmap {
    std::string layer_type;
    resource::masked_bitmap bitmap;
};

class layer_type_loader {
public:
    // Asks the services registered under each id, such as "vestra/scene/2d". The first row of a type wins.
    static std::vector<layer_type_bitmap> load(const std::vector<wide_string>& ids);
};

// Place of the layer's type in the list, or -1; also -1 for a null layer.
// Kept for other bundles; nothing here calls it.
int32_t layer_type_index(const std::vector<layer_type_bitmap>& types, vs_lr* layer);

} // namespace vs::project_resave
