// The links between layers and the tree of layer groups, and frames of layouts.
#include "reference_host/model/layer.h"

#include <algorithm>

#include "platform/path_text.h"
#include "reference_host/model/project.h"

namespace vestra {

wide_string table_beside(wide_view shape_file) {
    return vs::project_resave::path_replace_extension(shape_file, u".dbf");
}

layer_group::layer_group(layer_group& parent, layer& member)
    : parent_(&parent), member_(&member), is_leaf_(true) {}

layer_group::~layer_group() {
    // When a scene ends, its groups are destroyed before its layers.
    if (member_) member_->node_ = nullptr;
}

layer_group& layer_group::add_group(wide_string group_caption) {
    return *children_.emplace_back(std::make_unique<layer_group>(std::move(group_caption)));
}

void layer_group::add_layer(layer& member) {
    if (member.node_) member.node_->leave();
    // The constructor of a leaf is private, so make_unique cannot call it.
    children_.emplace_back(new layer_group(*this, member));
    member.node_ = children_.back().get();
}

std::uint32_t layer_group::count() const {
    drop_dead();
    return static_cast<std::uint32_t>(children_.size());
}

layer_group* layer_group::at(std::uint32_t index) const {
    drop_dead();
    return index < children_.size() ? children_[index].get() : nullptr;
}

void layer_group::erase_empty_groups() {
    drop_dead();
    // From the inside out, so that a group that holds only empty groups becomes empty first.
    for (const auto& child : children_) child->erase_empty_groups();
    std::erase_if(children_, [](const auto& child) { return child->is_group() && child->children_.empty(); });
}

void layer_group::leave() {
    member_->node_ = nullptr;
    member_ = nullptr;
    // The leaf itself is destroyed later, together with those of other layers.
    parent_->has_dead_ = true;
}

void layer_group::drop_dead() const {
    if (!has_dead_) return;
    std::erase_if(children_, [](const auto& child) { return !child->is_group() && !child->member_; });
    has_dead_ = false;
}

frame_scene::frame_scene(scene& shown) { bind(shown); }

// The cast is safe, since only `bind` sets the link.
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
