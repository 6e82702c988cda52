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

// The tree of layer groups of a scene. A node is a group, or it stands for one layer that the scene owns.
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

class layer_group;
class scene;

// Returns the path of the attribute table that belongs to a shape file: next to it, under its stem.
wide_string table_beside(wide_view shape_file);

// Its reference may be a path behind a "*".
inline constexpr const char* cutline_meta_id = "grid_cutline_lr2d";

enum class dimension : std::uint8_t { flat, solid };

// What a frame of a layout shows. The uuid stays when the scene is gone.
class frame_scene {
public:
    explicit frame_scene(const uuid& scene_id) : id(scene_id) {}
    explicit frame_scene(scene& shown);
    // Null when no such scene is in the project, or no longer.
    scene* get() const;
    void bind(scene& shown);

    uuid id;

private:
    entity_link target_; // always a scene
};

// A layer of a scene. What a kind of layer does not have stays empty or null.
class layer : public entity {
public:
    // The meta identifier of a layer is its type, unless it is set otherwise.
    layer(dimension layer_kind, std::string layer_type);
    ~layer() override;
    // Whether it stands in its scene's tree of groups.
    bool is_grouped() const { return node_ != nullptr; }

    // True if it shows a shape file, whatever its shapes are.
    bool is_shape() const { return type.starts_with("shp_"); }

    const dimension kind;
    std::string type;
    wide_string file;   // reference to the data, exactly as the layer holds it
    wide_string source; // source text of the data, for the vector data source
    bool visible = true;
    std::unique_ptr<attr_data> data;
    extra_table extras;
    std::unique_ptr<style_manager> style;
    std::unique_ptr<style_manager_list> styles;

    // What the plug-in of a layer answers from; a layer without the value has no such plug-in.
    std::optional<std::vector<wide_string>> members; // of a compound profile: uuid texts
    std::unique_ptr<scene> legend;                   // of a layout's legend: the small scene it shows
    std::optional<frame_scene> frame;                // of a layout's frame

    // What the C functions keep for as long as the layer lives: the objects behind its plug-in interface.
    std::shared_ptr<void> attached;

private:
    friend class layer_group;
    layer_group* node_ = nullptr; // where the layer stands in its scene's tree of groups
};

} // namespace vestra
