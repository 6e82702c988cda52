// The pictures of layer types, as the services of the scene kinds define them. Main thread only.
#pragma once

#include <string>
#include <vector>

#include "framework/resources/resource_bitmap.h"

namespace vs::project_resave {

// A layer type and its picture, which has width 0 if the service has none.
struct layer_type_bitmap {
    std::string layer_type;
    resource::masked_bitmap bitmap;
};

// Collects what the host and all bundles define, so call it after the bundles have started.
class layer_type_loader {
public:
    // Returns the types of the services registered under each id, such as "vestra/scene/2d". If a type occurs
    // several times, the first one is used. Decodes and copies all pictures, so keep the result.
    static std::vector<layer_type_bitmap> load(const std::vector<wide_string>& ids);
};

// Returns the index of the layer's type in the list; -1 if it is not there, and for a null layer. Kept for
// other bundles; nothing here calls it.
int32_t layer_type_index(const std::vector<layer_type_bitmap>& types, vs_lr* layer);

} // namespace vs::project_resave
