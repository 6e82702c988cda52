#include "reference_host/model/scene.h"

#include <utility>

namespace vestra {

scene& scene::operator=(scene&& other) noexcept {
    owned_list::operator=(static_cast<owned_list&&>(other)); // the fields below are still there
    source = std::move(other.source);
    groups = std::move(other.groups);
    page = std::move(other.page);
    return *this;
}

layer_group& scene::make_groups() {
    if (!groups) groups = std::make_unique<layer_group>(wide_string());
    return *groups;
}

scene_collection& scene_collection::operator=(scene_collection&& other) noexcept {
    owned_list::operator=(std::move(other));
    return *this;
}

} // namespace vestra
