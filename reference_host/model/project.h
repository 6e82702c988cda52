// Scenes, their collections, and the project that owns everything.
#pragma once

#include <memory>
#include <vector>

#include "reference_host/model/entity_list.h"
#include "reference_host/model/layer.h"
#include "reference_host/model/tables.h"

namespace vestra {

// Scenes and their collections. A layout, a well sheet and a legend's content are 2D scenes too.

// Meta identifiers that bundles compare with, so they must not change. The last two are those of the plug-in
// collections that a resave knows.
inline constexpr const char* scene_2d_meta_id = "Scene2DMetaID";
inline constexpr const char* scene_3d_meta_id = "Scene3DMetaID";
inline constexpr const char* well_sheets_meta_id = "plugin_scn_2d_well_planshet_collection3";
inline constexpr const char* correlations_meta_id = "c_scn2d_correlation_collection2";

// The members are the scene's layers in the order of its own list, which differs from the order of its
// groups. Removing a layer also removes it from the groups.
class scene : public owned_list<layer> {
public:
    explicit scene(dimension scene_kind)
        : owned_list(scene_kind == dimension::flat ? scene_2d_meta_id : scene_3d_meta_id), kind(scene_kind) {}
    // Replaces the content, but not the kind: both must have the same one. Layers keep their addresses.
    scene& operator=(scene&& other) noexcept;

    // Creates a layer of the scene's kind, with the type as its meta identifier, at the end of the list. It
    // is in no group yet.
    layer& make_layer(std::string type) { return make(kind, std::move(type)); }
    // Returns the root group; creates it if there is none.
    layer_group& make_groups();

    const dimension kind;
    wide_string source;                  // of a well sheet or correlation: the file it is made from
    std::unique_ptr<layer_group> groups; // the root; may be null
    std::unique_ptr<layer> page;         // of a layout; not among the layers
};

// A container of scenes of one kind. Layouts, well sheets and correlations are collections of 2D scenes.
class scene_collection : public owned_list<scene> {
public:
    scene_collection(dimension scenes_kind, std::string meta_identifier)
        : owned_list(std::move(meta_identifier)), kind(scenes_kind) {}
    scene_collection& operator=(scene_collection&& other) noexcept;

    // Creates an empty scene of the collection's kind at the end.
    scene& make_scene() { return make(kind); }

    const dimension kind;
};

// A project with all its containers, each an entity with a uuid.

inline constexpr const char* folder_meta_id = "FolderMetaID";
using folder_list = owned_list<entity>;

// A project owns everything in it. Move assignment replaces all content: members of the old project are
// destroyed, and links to them become null.
class project : public counted {
public:
    // Creates empty containers with their fixed uuids and captions, which a project file need not repeat.
    project();
    ~project();
    project(const project&) = delete;
    project& operator=(const project&) = delete;
    project& operator=(project&&) noexcept = default;

    // Adds a collection of 2D scenes that belongs to a plug-in: well sheets, correlations or others. Its
    // address stays valid as long as the project.
    scene_collection& add_plugin_scenes(std::string meta_identifier);

    wide_string file;    // the file it was read from
    folder_list folders; // entities that only serve as parents of others
    scene_collection scenes_2d;
    scene_collection scenes_3d;
    attr_data_list tables;
    tos_data_list tos_tables;
    scene_collection layouts;
    std::vector<std::unique_ptr<scene_collection>> plugin_scenes;
    map_legend_list map_legends;
};

} // namespace vestra
