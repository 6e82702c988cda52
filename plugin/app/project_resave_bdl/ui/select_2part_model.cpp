// Keeps scenes and their layers consistent: selecting a scene selects its layers, and a selected layer needs
// its scene.

#include "ui/select_2part_model.h"

#include <algorithm>

#include "framework/resources/strings.h"

namespace vs::project_resave::detail {

std::vector<layer_type_bitmap>& layer_icons::list() {
    if (!is_loaded_) {
        is_loaded_ = true;
        types_ = layer_type_loader::load({scene_kind_});
    }
    return types_;
}

int32_t layer_icons::index_of(std::string_view layer_type) {
    const auto& known = list();
    const auto row = std::find_if(known.begin(), known.end(), [&](const layer_type_bitmap& type) {
        return type.layer_type == layer_type;
    });
    return row == known.end() ? -1 : static_cast<int32_t>(row - known.begin());
}

masked_bitmap_impl* layer_icons::at(int32_t index) {
    auto& known = list();
    return index >= 0 && static_cast<uint32_t>(index) < known.size()
               ? &known[static_cast<uint32_t>(index)].bitmap
               : nullptr;
}

select_2part_model::select_2part_model(selection_register& told, text::row caption)
    : selection_(told), top_root_(told, load_string(caption)) {}

void select_2part_model::set_all(uint32_t part, bool on) {
    change_all(part, [on](select_tree_node& tree) { tree.set_checked(on); });
}

void select_2part_model::invert(uint32_t part) {
    change_all(part, [](select_tree_node& tree) { tree.invert_checked(); });
}

void select_2part_model::reset(uint32_t part) {
    change_all(part, [](select_tree_node& tree) { tree.reset_checked(); });
}

void select_2part_model::change_all(uint32_t part, const std::function<void(select_tree_node&)>& change) {
    select_tree_node* const own = root(part);
    if (!own) return;
    change(*own);
    if (part == top_part)
        for (const auto& [uuid, tree] : bottoms_) change(*tree);
    // Kept as users know it: this also runs after an inversion, which can check a scene again that was just
    // unchecked.
    sync_top();
    bottom_changed_.fire();
    top_changed_.fire();
}

void select_2part_model::on_item_checked(uint32_t part, select_tree_item& item, bool on,
                                         bool only_highlighted) {
    if (part == bottom_part) {
        sync_top();
        top_changed_.fire();
    }
    if (part != top_part) return;
    std::vector<select_tree_leaf*> scenes;
    item.collect_leaves(scenes, only_highlighted);
    for (const select_tree_leaf* scene : scenes)
        if (const auto row = bottoms_.find(scene->uuid); row != bottoms_.end()) row->second->set_checked(on);
    bottom_changed_.fire();
}

// Kept as users know it: only one way, so unchecking the last layer leaves its scene checked.
void select_2part_model::sync_top() {
    for (const auto& [uuid, tree] : bottoms_) {
        if (tree->check_state() == vs_state_false) continue;
        // A layer is only saved together with its scene.
        if (select_tree_leaf* scene = top_root_.find_leaf(uuid)) scene->set_checked(true);
    }
}

void select_2part_model::set_current_item(uint32_t part, const select_tree_item* item) {
    if (part == top_part && item) set_current(item->uuid);
}

void select_2part_model::set_current(const wide_string& uuid) {
    current_ = uuid;
    bottom_changed_.fire();
}

select_tree_node* select_2part_model::root(uint32_t part) {
    if (part == top_part) return &top_root_;
    // The current scene may have been removed since it was chosen.
    const auto shown = part == bottom_part ? bottoms_.find(current_) : bottoms_.end();
    return shown == bottoms_.end() ? nullptr : shown->second.get();
}

void select_2part_model::fire_changed(uint32_t part) {
    if (event* changed = changed_event(part)) changed->fire();
}

event* select_2part_model::changed_event(uint32_t part) {
    if (part == top_part) return &top_changed_;
    return part == bottom_part ? &bottom_changed_ : nullptr;
}

select_tree_node& select_2part_model::add_bottom(const wide_string& uuid, const wide_string& caption) {
    auto& place = bottoms_[uuid];
    place = std::make_unique<select_tree_node>(selection_, caption);
    return *place;
}

void select_2part_model::clear() {
    bottoms_.clear();
    top_root_.clear_children();
    current_.clear();
}

} // namespace vs::project_resave::detail
