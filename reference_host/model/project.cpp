// The parts of a project that are more than lists: moving scenes, and the fixed identity of containers.
#include "reference_host/model/project.h"

#include <utility>

namespace vestra {

scene& scene::operator=(scene&& other) noexcept {
    // Moves only the base, so the members below are still valid.
    owned_list::operator=(static_cast<owned_list&&>(other));
    source = std::move(other.source);
    groups = std::move(other.groups);
    page = std::move(other.page);
    return *this;
}

layer_group& scene::make_groups() {
    if (!groups) groups = std::make_unique<layer_group>(wide_string());
    return *groups;
}

// Written out because of the const member, which keeps its value.
scene_collection& scene_collection::operator=(scene_collection&& other) noexcept {
    owned_list::operator=(std::move(other));
    return *this;
}

namespace {

// Files may leave out the uuid and caption of a container, and then rely on these, so they must never change.
void identify(entity& container, wide_view id, wide_view caption) {
    container.id = *uuid::parse(id);
    container.caption = caption;
}

} // namespace

project::project()
    : folders("FolderCollectionMetaID"), scenes_2d(dimension::flat, "Scene2DCollectionMetaID"),
      scenes_3d(dimension::solid, "Scene3DCollectionMetaID"), tables("AttrDataCollectionMetaID"),
      tos_tables("TosDataCollectionMetaID"), layouts(dimension::flat, "LayoutCollectionMetaID"),
      map_legends("MapLegendCollectionMetaID") {
    identify(folders, u"5e57a000-0000-4000-8000-000000000001", u"Folders");
    identify(scenes_2d, u"5e57a000-0000-4000-8000-000000000002", u"2D scenes");
    identify(scenes_3d, u"5e57a000-0000-4000-8000-000000000003", u"3D scenes");
    identify(tables, u"5e57a000-0000-4000-8000-000000000004", u"DBF tables");
    identify(tos_tables, u"5e57a000-0000-4000-8000-000000000005", u"OAT tables");
    identify(layouts, u"5e57a000-0000-4000-8000-000000000006", u"Layouts");
    identify(map_legends, u"5e57a000-0000-4000-8000-000000000007", u"Map legends");
}

project::~project() = default;

scene_collection& project::add_plugin_scenes(std::string meta_identifier) {
    plugin_scenes.push_back(std::make_unique<scene_collection>(dimension::flat, std::move(meta_identifier)));
    return *plugin_scenes.back();
}

} // namespace vestra
