// Pictures of layer types, and the model of scenes with their layers. Main thread only.
#pragma once

#include <functional>
#include <string_view>

#include "framework/resources/layer_type_loader.h"
#include "framework/resources/text_rows.h"
#include "operations/run/run_progress.h"
#include "ui/select_tree.h"

namespace vs::project_resave::detail {

// The pictures of the layer types of one kind of scene, for the rows of layers.
class layer_icons {
public:
    // `kind` is the id of the services that define the types: "vestra/scene/2d" or "vestra/scene/3d".
    explicit layer_icons(wide_string kind) : scene_kind_(std::move(kind)) {}

    // Each of these asks the host for the list on first use, and never again.
    uint32_t count() { return static_cast<uint32_t>(list().size()); }
    // Returns the index of the type; -1 if it is unknown.
    int32_t index_of(std::string_view layer_type);
    // Returns the picture; null outside the list.
    masked_bitmap_impl* at(int32_t index);

private:
    // Returns the list, which is loaded on first use.
    std::vector<layer_type_bitmap>& list();

    const wide_string scene_kind_;
    bool is_loaded_ = false; // true even if the list was empty
    std::vector<layer_type_bitmap> types_;
};

// The two parts of the model below. Operations with a part ignore any other number.
enum model_part : uint32_t {
    top_part = 0,    // a leaf for each scene
    bottom_part = 1, // the tree of layers of the current scene
};

// A list of scenes and the layers of the current scene: everything that can be selected in the scenes of one
// kind.
class select_2part_model {
public:
    using trees = std::unordered_map<wide_string, std::unique_ptr<select_tree_node>>;

    // `told` is the register that check marks change; it must outlive the model.
    select_2part_model(selection_register& told, text::row caption);

    // The tools. For the top part they include all layers of all scenes. For the bottom part they do nothing,
    // and fire nothing, while there is no current scene.
    void set_all(uint32_t part, bool on);
    void invert(uint32_t part);
    void reset(uint32_t part);
    // Applies a changed check mark to the other part: from scenes down to all their layers, or from layers up
    // to a scene that now has a checked layer. `item` is the row, or the root for all highlighted rows.
    void on_item_checked(uint32_t part, select_tree_item& item, bool on, bool only_highlighted);
    // Shows the layers of this scene; ignores null and rows of the bottom part.
    void set_current_item(uint32_t part, const select_tree_item* item);
    // Makes this scene the current one and fires the bottom event; an unknown uuid shows no layers.
    void set_current(const wide_string& uuid);
    // Checks each scene with a checked layer. Never unchecks one: unchecking the last layer leaves its scene
    // checked.
    void sync_top();

    // Returns the tree of a part; null for the bottom part while there is no current scene.
    select_tree_node* root(uint32_t part);
    // Fires the event of a part.
    void fire_changed(uint32_t part);
    // Returns the event of a part; null for an unknown part.
    event* changed_event(uint32_t part);
    // Returns the trees of layers of all scenes.
    const trees& bottoms() const { return bottoms_; }
    // Creates the tree of a scene, replacing an earlier one with the same uuid.
    select_tree_node& add_bottom(const wide_string& uuid, const wide_string& caption);
    // Removes all rows, which become invalid; fires nothing.
    void clear();

private:
    // Applies `change` to each tree of the part, the top one first.
    void change_all(uint32_t part, const std::function<void(select_tree_node&)>& change);

    selection_register& selection_;
    select_tree_node top_root_;
    event top_changed_;
    trees bottoms_; // by the scene's uuid
    // The uuid of the scene whose layers are shown; it may name none.
    wide_string current_;
    event bottom_changed_;
};

// The same with pictures for the rows of layers. The pictures are loaded when a host first asks for one.
class select_2part_model_bottom_icon final : public select_2part_model {
public:
    select_2part_model_bottom_icon(selection_register& told, text::row caption, wide_string scene_kind)
        : select_2part_model(told, caption), icons_(std::move(scene_kind)) {}
    layer_icons& icons() { return icons_; }

private:
    layer_icons icons_;
};

} // namespace vs::project_resave::detail
