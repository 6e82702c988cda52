// A row of what the user can tick, be it a node or a leaf of the tree.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "framework/border/visitors.h"
#include "host/types.h"
#include "operations/run/registers.h"

namespace vs::project_resave::detail {

class select_tree_leaf;
class select_tree_node;

// A row. Operations for which a kind of row has no use do nothing and answer the neutral value.
class select_tree_item {
public:
    select_tree_item(const select_tree_item&) = delete;
    select_tree_item& operator=(const select_tree_item&) = delete;
    virtual ~select_tree_item() = default;

    // Among the rows highlighted in the outline. A node's own flag covers what is below it too.
    void set_highlighted(bool on) { highlighted_ = on; }
    bool highlighted() const { return highlighted_; }
    virtual void set_highlighted_deep(bool on) { set_highlighted(on); }
    virtual void set_expanded(bool) {}
    virtual bool expanded() const { return true; }
    // Of a node: whether all below it are.
    virtual bool valid() const = 0;
    void caption_to(string_visitor visitor) const { tell(visitor, caption); }

    virtual uint32_t child_count() const { return 0; }
    bool is_empty() const { return child_count() == 0; }
    // Null past the last.
    virtual select_tree_item* child_at(uint32_t) const { return nullptr; }

    virtual void set_checked(bool on) = 0;
    // A `vs_three_state`. Of a node: as its leaves are; false without one, mixed if they differ.
    virtual uint32_t check_state() const = 0;
    virtual void invert_checked() = 0;
    virtual void reset_checked() = 0;
    // On all that is highlighted, by itself or by a node above it.
    virtual void set_checked_if_highlighted(bool on) = 0;
    virtual bool contains_leaf() const = 0;
    // Appends the leaves, all or only those that are highlighted.
    virtual void collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) = 0;

    const wide_string caption;
    const wide_string uuid;       // the key in every register; empty on a node
    const std::string layer_type; // keys the icon of a layer's row; empty on all others

protected:
    select_tree_item(selection_register& told, select_tree_node* above, wide_string own_caption,
                     wide_string own_uuid = {}, std::string own_layer_type = {})
        : caption(std::move(own_caption)), uuid(std::move(own_uuid)), layer_type(std::move(own_layer_type)),
          selection(told), parent(above) {}
    // What the nodes above sum up is no longer so.
    void on_changed() const;

    selection_register& selection;
    select_tree_node* const parent; // null for a root

private:
    bool highlighted_ = false;
};

} // namespace vs::project_resave::detail
