// Layers of scenes, the tree of groups in which a scene shows its layers, and frames of layouts.
#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reference_host/model/any.h"
#include "reference_host/model/counted.h"
#include "reference_host/model/entity.h"
#include "reference_host/model/tables.h"

namespace vestra {

class layer;

// A node in the tree of layer groups of a scene: either a group or a leaf for one layer, which the scene
// owns. A group owns the nodes below it; destroying a leaf does not affect its layer.
class layer_group : public counted {
public:
    explicit layer_group(wide_string group_caption) : caption(std::move(group_caption)) {}
    ~layer_group();
    layer_group(const layer_group&) = delete;
    layer_group& operator=(const layer_group&) = delete;

    // Appends an empty group and returns it.
    layer_group& add_group(wide_string group_caption);
    // Appends a leaf for the layer, which must be of the same scene. A layer is in the tree at most once, so
    // it leaves its previous place. The leaf is removed when the layer is destroyed; groups stay, even if
    // they become empty.
    void add_layer(layer& member);

    bool is_group() const { return !is_leaf_; }
    // Returns null for a group.
    layer* member() const { return member_; }
    // Returns the number of nodes directly below this one; 0 for a leaf.
    std::uint32_t count() const;
    // Returns null for an index at or beyond the count.
    layer_group* at(std::uint32_t index) const;
    // Removes all groups below this one that contain no layer at any depth.
    void erase_empty_groups();

    // Of a group; empty for a leaf.
    wide_string caption;

private:
    friend class layer;
    layer_group(layer_group& parent, layer& member);
    // Separates a leaf from its layer; the group above drops the leaf later.
    void leave();
    // Removes the leaves that were separated.
    void drop_dead() const;

    // Both null for a group; `member_` is also null for a leaf whose layer is destroyed.
    layer_group* parent_ = nullptr;
    layer* member_ = nullptr;
    bool is_leaf_ = false;
    // Leaves of destroyed layers are dropped together on the next access, so that removing n layers stays
    // linear.
    mutable bool has_dead_ = false;
    mutable std::vector<std::unique_ptr<layer_group>> children_;
};

class layer_group;
class scene;

// Returns the path of the attribute table that belongs to a shape file: next to it, under its stem.
wide_string table_beside(wide_view shape_file);

// Meta identifier of a layer whose reference may be "*" followed by a path.
inline constexpr const char* cutline_meta_id = "grid_cutline_lr2d";

enum class dimension : std::uint8_t { flat, solid };

// The scene that a frame of a layout shows. The uuid is kept when the scene is destroyed.
class frame_scene {
public:
    explicit frame_scene(const uuid& scene_id) : id(scene_id) {}
    explicit frame_scene(scene& shown);
    // Returns null if the project has no such scene, or no longer has it.
    scene* get() const;
    // Shows this scene from now on, and takes over its uuid.
    void bind(scene& shown);

    uuid id;

private:
    entity_link target_; // always a scene
};

// A layer of a scene. Members that do not apply to its type stay empty or null.
class layer : public entity {
public:
    // The meta identifier of a layer is its type, unless another one is set.
    layer(dimension layer_kind, std::string layer_type);
    ~layer() override;
    // True if the layer is in its scene's tree of groups.
    bool is_grouped() const { return node_ != nullptr; }

    // True if the layer shows a shape file, with any type of shapes.
    bool is_shape() const { return type.starts_with("shp_"); }

    const dimension kind;
    // The kind of data and how it is drawn, such as "shp_pnt_lr2d". Unknown types are kept.
    std::string type;
    wide_string file;   // reference to the data, exactly as the layer holds it
    wide_string source; // source text of the data, for the vector data source
    bool visible = true;
    // The attribute table of the layer's data. It belongs to the layer and is not in the project's list of
    // tables.
    std::unique_ptr<attr_data> data;
    extra_table extras;
    std::unique_ptr<style_manager> style;
    std::unique_ptr<style_manager_list> styles;

    // Data behind the plug-in interfaces of a layer; a layer without the value does not have that interface.
    std::optional<std::vector<wide_string>> members; // of a compound profile: uuid texts
    std::unique_ptr<scene> legend;                   // of a layout's legend: the small scene it shows
    std::optional<frame_scene> frame;                // of a layout's frame

    // Objects that the C functions keep until the layer is destroyed: those behind its plug-in interfaces.
    std::shared_ptr<void> attached;

private:
    friend class layer_group;
    layer_group* node_ = nullptr; // the leaf of the layer in its scene's tree of groups
};

} // namespace vestra
