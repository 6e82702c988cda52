// Reads the elements that the user can select from a loaded project. An element without a uuid, or a null
// element, shows the error box "Error select" and gets no row. Main thread only.
#pragma once

#include "host/types.h"
#include "services/entity_factory.h"
#include "ui/select_2part_model.h"

namespace vs::project_resave::detail {

// Add a leaf for each scene and, for each scene, the tree of its layers in the scene's groups; the first
// scene becomes the current one. A scene with an invalid layer is marked invalid. Trees of other scenes stay.
void fill_scenes_2d(vs_prj* project, select_2part_model& model);
void fill_scenes_3d(vs_prj* project, select_2part_model& model);

// Replaces the content of `root` by a leaf for each member. Fires `changed` after clearing it, since an error
// box lets the host redraw its windows.
void fill_flat(vs_entities* collection, select_tree_node& root, event& changed);

// Replaces the content of `root` by the items of each service that shows itself in the selection, below its
// heading if it has one. An item without a uuid has no row. Fires nothing. `services` may be null.
void fill_services(const resave_services* services, select_tree_node& root);

} // namespace vs::project_resave::detail
