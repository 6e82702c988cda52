// A project: all its containers, each an entity with a uuid.
#pragma once

#include <memory>
#include <vector>

#include "reference_host/model/scene.h"
#include "reference_host/model/tables.h"

namespace vestra {

inline constexpr const char* folder_meta_id = "FolderMetaID";
using folder_list = owned_list<entity>;

class project : public counted {
public:
    // Empty containers, each under its fixed uuid and caption.
    project();
    ~project();
    project(const project&) = delete;
    project& operator=(const project&) = delete;
    project& operator=(project&&) noexcept = default;

    // A further collection of 2D scenes that a plug-in keeps: well sheets, correlations, any other.
    scene_collection& add_plugin_scenes(std::string meta_identifier);

    wide_string file;    // the file it was read from
    folder_list folders; // entities that are nothing but the parents of others
    scene_collection scenes_2d;
    scene_collection scenes_3d;
    attr_data_list tables;
    tos_data_list tos_tables;
    scene_collection layouts;
    std::vector<std::unique_ptr<scene_collection>> plugin_scenes;
    map_legend_list map_legends;
};

} // namespace vestra
