#include "reference_host/model/layer.h"

#include "reference_host/model/scene.h"

namespace vestra {

frame_scene::frame_scene(scene& shown) { bind(shown); }

scene* frame_scene::get() const { return static_cast<scene*>(target_.get()); }

void frame_scene::bind(scene& shown) {
    id = shown.id;
    target_ = entity_link(&shown);
}

layer::layer(dimension layer_kind, std::string layer_type)
    : entity(layer_type), kind(layer_kind), type(std::move(layer_type)) {}

layer::~layer() {
    if (node_) node_->leave();
}

} // namespace vestra
