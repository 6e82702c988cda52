// The elements that the user can select, as a tree: nodes with a heading, and leaves that each represent one
// element of the project. Only leaves change the selection register. Main thread only.
//
// A parent owns its children and outlives them. A node's summary of everything below it is computed on demand
// and kept until something below changes, so asking every row is linear.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>

#include "ui/select_tree_item.h"

namespace vs::project_resave::detail {

// A row with rows below it. Its check mark is the summary of its leaves.
class select_tree_node final : public select_tree_item {
public:
    select_tree_node(selection_register& told, wide_string own_caption, select_tree_node* above = nullptr)
        : select_tree_item(told, above, std::move(own_caption)) {}

    // Operations on a node go to everything below it at any depth; their cost is linear in the number of
    // rows.
    void set_highlighted_deep(bool on) override;
    void set_expanded(bool on) override { expanded_ = on; }
    bool expanded() const override { return expanded_; }
    // From the summary: constant time until something below changes.
    bool valid() const override { return summed().valid; }
    uint32_t child_count() const override { return static_cast<uint32_t>(children_.size()); }
    select_tree_item* child_at(uint32_t index) const override;
    void set_checked(bool on) override;
    uint32_t check_state() const override { return summed().check_state; }
    void invert_checked() override;
    void reset_checked() override;
    void set_checked_if_highlighted(bool on) override;
    bool contains_leaf() const override { return summed().contains_leaf; }
    void collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) override;

    // Destroys all children, so all rows below become invalid. Fires nothing, and leaves the register as it
    // is.
    void clear_children();
    // Append a child and return it. A pointer to a child is valid until the parent is cleared or destroyed.
    select_tree_node& add_node(const wide_string& caption);
    // Adds nothing and returns null for an empty uuid.
    select_tree_leaf* add_leaf(const wide_string& uuid, const wide_string& caption, bool valid,
                               bool default_checked, const std::string& layer_type);
    // Returns the first match, depth first; null if there is none. The cost depends on the number of nodes,
    // not of leaves.
    select_tree_leaf* find_leaf(const wide_string& uuid) const;

private:
    friend class select_tree_item;
    struct summary {
        bool contains_leaf = false;
        bool valid = true;
        uint32_t check_state = vs_state_false;
    };
    // Returns the cached summary, computing it if necessary. Afterwards all nodes below have one, too.
    const summary& summed() const;
    // Also clears the summaries of the nodes above. If a node has no summary, those above it have none
    // either.
    void forget_summary() const;

    // State of the outline only; a run never reads it.
    bool expanded_ = true;
    std::vector<std::unique_ptr<select_tree_item>> children_;
    // The positions of the nodes, and of the leaves among them; for equal uuids the first leaf.
    std::vector<std::pair<size_t, select_tree_node*>> nodes_;
    std::unordered_map<wide_view, std::pair<size_t, select_tree_leaf*>> leaves_;
    mutable std::optional<summary> summary_;
};

// A row for one element; checked when it is created. Two rows can represent the same element; each has its
// own mark, and the one changed last decides in the register.
class select_tree_leaf final : public select_tree_item {
public:
    select_tree_leaf(selection_register& told, select_tree_node* above, const wide_string& own_uuid,
                     const wide_string& own_caption, bool is_valid, bool checked_by_default,
                     const std::string& own_layer_type)
        : select_tree_item(told, above, own_caption, own_uuid, own_layer_type), valid_(is_valid),
          default_checked_(checked_by_default) {}

    // Marks the row as valid or invalid; the rows above change with it.
    void set_valid(bool on);
    bool valid() const override { return valid_; }
    void set_checked(bool on) override;
    uint32_t check_state() const override;
    void invert_checked() override { set_checked(!checked_); }
    void reset_checked() override { set_checked(default_checked_); }
    void set_checked_if_highlighted(bool on) override;
    bool contains_leaf() const override { return true; }
    void collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) override;

private:
    bool valid_;
    bool checked_ = true;
    // What `reset_checked` restores: whether a layer is visible in its scene; true for all other elements.
    const bool default_checked_;
};

} // namespace vs::project_resave::detail
