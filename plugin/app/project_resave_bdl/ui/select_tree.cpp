// The tree of what can be selected. Setting a leaf's mark changes the selection register; everything else is
// computed from the leaves.

#include "ui/select_tree.h"

#include "host/vsk_basic.h"

namespace vs::project_resave::detail {

void select_tree_item::on_changed() const {
    if (parent) parent->forget_summary();
}

// Stops at a node without a summary: the nodes above it have none either, so a change costs little.
void select_tree_node::forget_summary() const {
    for (const select_tree_node* node = this; node && node->summary_; node = node->parent)
        node->summary_.reset();
}

// Asks every child, even when the result is known: a change is passed up only through nodes that have a
// summary.
const select_tree_node::summary& select_tree_node::summed() const {
    if (summary_) return *summary_;
    summary sum;
    for (const auto& child : children_) {
        sum.valid &= child->valid();
        if (!child->contains_leaf()) continue;
        const uint32_t state = child->check_state();
        if (!sum.contains_leaf)
            sum.check_state = state;
        else if (state != sum.check_state)
            sum.check_state = vs_state_mixed;
        sum.contains_leaf = true;
    }
    return summary_.emplace(sum);
}

void select_tree_node::set_highlighted_deep(bool on) {
    set_highlighted(on);
    for (const auto& child : children_) child->set_highlighted_deep(on);
}

void select_tree_node::clear_children() {
    leaves_.clear();
    nodes_.clear();
    children_.clear();
    forget_summary();
}

select_tree_item* select_tree_node::child_at(uint32_t index) const {
    return index < children_.size() ? children_[index].get() : nullptr;
}

select_tree_node& select_tree_node::add_node(const wide_string& own_caption) {
    auto made = std::make_unique<select_tree_node>(selection, own_caption, this);
    select_tree_node& node = *made;
    nodes_.emplace_back(children_.size(), &node);
    children_.push_back(std::move(made));
    forget_summary();
    return node;
}

select_tree_leaf* select_tree_node::add_leaf(const wide_string& own_uuid, const wide_string& own_caption,
                                             bool is_valid, bool default_checked,
                                             const std::string& own_layer_type) {
    // Without a uuid the register could not keep the row's state.
    if (own_uuid.empty()) return nullptr;
    auto made = std::make_unique<select_tree_leaf>(selection, this, own_uuid, own_caption, is_valid,
                                                   default_checked, own_layer_type);
    select_tree_leaf* const leaf = made.get();
    // The key refers to the leaf's own text, which lives as long as the leaf.
    leaves_.try_emplace(leaf->uuid, children_.size(), leaf);
    children_.push_back(std::move(made));
    forget_summary();
    return leaf;
}

// The first match in the order of display: a node counts only if it comes before the own leaf.
select_tree_leaf* select_tree_node::find_leaf(const wide_string& wanted) const {
    const auto own = leaves_.find(wanted);
    for (const auto& [place, node] : nodes_) {
        if (own != leaves_.end() && own->second.first < place) break;
        if (select_tree_leaf* found = node->find_leaf(wanted)) return found;
    }
    return own == leaves_.end() ? nullptr : own->second.second;
}

void select_tree_node::set_checked(bool on) {
    for (const auto& child : children_) child->set_checked(on);
}

void select_tree_node::invert_checked() {
    for (const auto& child : children_) child->invert_checked();
}

void select_tree_node::reset_checked() {
    for (const auto& child : children_) child->reset_checked();
}

void select_tree_node::set_checked_if_highlighted(bool on) {
    if (highlighted())
        set_checked(on);
    else
        for (const auto& child : children_) child->set_checked_if_highlighted(on);
}

// A highlighted node covers all leaves below it.
void select_tree_node::collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) {
    for (const auto& child : children_) child->collect_leaves(found, only_highlighted && !highlighted());
}

void select_tree_leaf::set_valid(bool on) {
    valid_ = on;
    on_changed();
}

void select_tree_leaf::set_checked(bool on) {
    if (checked_ == on) return;
    checked_ = on;
    on_changed();
    // The only place where a check mark reaches the register.
    selection.set_selected(uuid, on);
}

uint32_t select_tree_leaf::check_state() const { return vs_bool_to_3state(checked_); }

void select_tree_leaf::set_checked_if_highlighted(bool on) {
    if (highlighted()) set_checked(on);
}

void select_tree_leaf::collect_leaves(std::vector<select_tree_leaf*>& found, bool only_highlighted) {
    if (!only_highlighted || highlighted()) found.push_back(this);
}

} // namespace vs::project_resave::detail
