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
    // `kind` is the id of the services that know the types: "vestra/scene/2d" or "vestra/scene/3d".
    explicit layer_icons(wide_string kind) : scene_kind_(std::move(kind)) {}

    // Each asks the host for the list when it is first wanted, and never again.
    uint32_t count() { return static_cast<uint32_t>(list().size()); }
    // Place of the type, or -1.
    int32_t index_of(std::string_view layer_type);
    // Null outside of the list.
    masked_bitmap_impl* at(int32_t index);

private:
    std::vector<layer_type_bitmap>& list();

    const wide_string scene_kind_;
    bool is_loaded_ = false; // a list that came back empty counts
    std::vector<layer_type_bitmap> types_;
};

// A list of scenes and, below it, the layers of the one that is current: what can be ticked of the scenes of
// one kind.
// The two parts of such a model. Operations that take a part ignore any other number.
enum model_part : uint32_t {
    top_part = 0,    // a leaf for each scene
    bottom_part = 1, // the tree of layers of the current scene
};

class select_2part_model {
public:
    using trees = std::unordered_map<wide_string, std::unique_ptr<select_tree_node>>;

    select_2part_model(selection_register& told, text::row caption);

    // The tools. On the top part they take in all layers of all scenes. Where there is no current scene those
    // of the bottom part do nothing, and nothing is fired.
    void set_all(uint32_t part, bool on);
    void invert(uint32_t part);
    void reset(uint32_t part);
    // Carries a tick, which is there already, over to the other part: from scenes down to all their layers,
    // from layers up to a scene that now has one ticked. `item` is the row, or the root for all highlighted.
    void on_item_checked(uint32_t part, select_tree_item& item, bool on, bool only_highlighted);
    // Shows the layers of this scene; null and the bottom part change nothing.
    void set_current_item(uint32_t part, const select_tree_item* item);
    void set_current(const wide_string& uuid);
    // Ticks each scene that has a layer ticked. One way only: the last layer unticked leaves its scene on.
    void sync_top();

    // Null for the bottom part while no scene is current.
    select_tree_node* root(uint32_t part);
    void fire_changed(uint32_t part);
    // Null for any other part.
    event* changed_event(uint32_t part);
    // The trees of layers of all scenes.
    const trees& bottoms() const { return bottoms_; }
    // Makes the tree of a scene; one of the same uuid is destroyed.
    select_tree_node& add_bottom(const wide_string& uuid, const wide_string& caption);
    // Rows asked for before are void; nothing is fired.
    void clear();

private:
    // Does so to each tree of the part, top first.
    void change_all(uint32_t part, const std::function<void(select_tree_node&)>& change);

    selection_register& selection_;
    select_tree_node top_root_;
    event top_changed_;
    trees bottoms_; // by the scene's uuid
    wide_string current_;
    event bottom_changed_;
};

class select_2part_model_bottom_icon final : public select_2part_model {
public:
    select_2part_model_bottom_icon(selection_register& told, text::row caption, wide_string scene_kind)
        : select_2part_model(told, caption), icons_(std::move(scene_kind)) {}
    layer_icons& icons() { return icons_; }

private:
    layer_icons icons_;
};

} // namespace vs::project_resave::detail
