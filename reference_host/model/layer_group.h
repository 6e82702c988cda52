// The tree of layer groups of a scene. A node is a group, or it stands for one layer that the scene owns.
#pragma once

#include <cstdint>
#include <memory>
#include <vector>

#include "reference_host/model/counted.h"
#include "reference_host/model/text.h"

namespace vestra {

class layer;

class layer_group : public counted {
public:
    explicit layer_group(wide_string group_caption) : caption(std::move(group_caption)) {}
    ~layer_group();
    layer_group(const layer_group&) = delete;
    layer_group& operator=(const layer_group&) = delete;

    layer_group& add_group(wide_string group_caption);
    // A layer stands in the tree at most once: it leaves the place it had. The node goes when the layer is
    // destroyed; the groups above it stay, also when they are empty then.
    void add_layer(layer& member);

    bool is_group() const { return !is_leaf_; }
    // Null for a group.
    layer* member() const { return member_; }
    std::uint32_t count() const;
    // Null at and beyond the count.
    layer_group* at(std::uint32_t index) const;
    // Removes all groups below this one that hold no layer at any depth.
    void erase_empty_groups();

    wide_string caption;

private:
    friend class layer;
    layer_group(layer_group& parent, layer& member);
    void leave();
    void drop_dead() const;

    layer_group* parent_ = nullptr;
    layer* member_ = nullptr;
    bool is_leaf_ = false;
    // Leaves whose layer went are dropped together, on the next look: removing n layers stays linear.
    mutable bool has_dead_ = false;
    mutable std::vector<std::unique_ptr<layer_group>> children_;
};

} // namespace vestra
