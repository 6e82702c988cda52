// A layer of a scene. What a kind of layer does not have stays empty or null.
#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "reference_host/model/any.h"
#include "reference_host/model/entity.h"
#include "reference_host/model/styles.h"
#include "reference_host/model/tables.h"

namespace vestra {

class layer_group;
class scene;

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

class layer : public entity {
public:
    // The meta identifier of a layer is its type, unless it is set otherwise.
    layer(dimension layer_kind, std::string layer_type);
    ~layer() override;
    // Whether it stands in its scene's tree of groups.
    bool is_grouped() const { return node_ != nullptr; }

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
