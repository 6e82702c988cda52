// A row of the tree of elements that the user can select. Main thread only.
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

// A node or a leaf. Operations that do not apply to one of them do nothing and return a neutral value.
// Nothing here fires an event: code that changes a tree makes the views ask again.
class select_tree_item {
public:
    select_tree_item(const select_tree_item&) = delete;
    select_tree_item& operator=(const select_tree_item&) = delete;
    virtual ~select_tree_item() = default;

    // True if the row is highlighted in the outline. A node's flag also covers everything below it.
    void set_highlighted(bool on) { highlighted_ = on; }
    bool highlighted() const { return highlighted_; }
    // Sets the flag of the row and of everything below it.
    virtual void set_highlighted_deep(bool on) { set_highlighted(on); }
    // Whether the rows below a node are shown; a leaf is always expanded.
    virtual void set_expanded(bool) {}
    virtual bool expanded() const { return true; }
    // For a node: true if everything below it is valid.
    virtual bool valid() const = 0;
    // Passes the caption to the visitor. It never changes.
    void caption_to(string_visitor visitor) const { tell(visitor, caption); }

    // The rows directly below; only a node has some.
    virtual uint32_t child_count() const { return 0; }
    bool is_empty() const { return child_count() == 0; }
    // Returns null past the last child.
    virtual select_tree_item* child_at(uint32_t) const { return nullptr; }

    // Sets, inverts or restores the check mark of the leaf or of all leaves below; changes the register.
    virtual void set_checked(bool on) = 0;
    // Returns a `vs_three_state`. For a node: the state of its leaves; false without leaves, mixed if they
    // differ.
    virtual uint32_t check_state() const = 0;
    virtual void invert_checked() = 0;
    virtual void reset_checked() = 0;
    // Does the same for everything that is highlighted, itself or through a node above it.
    virtual void set_checked_if_highlighted(bool on) = 0;
    // True for a leaf, and for a node with a leaf at any depth.
    virtual bool contains_leaf() const = 0;
    // Appends the leaves, either all of them or only the highlighted ones.
    virtual void collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) = 0;

    const wide_string caption;
    const wide_string uuid;       // the key in every register; empty for a node
    const std::string layer_type; // selects the icon of a layer's row; empty for all others

protected:
    select_tree_item(selection_register& told, select_tree_node* above, wide_string own_caption,
                     wide_string own_uuid = {}, std::string own_layer_type = {})
        : caption(std::move(own_caption)), uuid(std::move(own_uuid)), layer_type(std::move(own_layer_type)),
          selection(told), parent(above) {}
    // Clears the summaries of the nodes above.
    void on_changed() const;

    // The register that the marks of leaves change.
    selection_register& selection;
    select_tree_node* const parent; // null for a root

private:
    // Of this row; a node above can cover it as well.
    bool highlighted_ = false;
};

} // namespace vs::project_resave::detail
