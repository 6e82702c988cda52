// Reads what can be ticked out of a loaded project. An element that has no uuid, or is not there, shows the
// error box "Error select" and gets no row.
#pragma once

#include "host/types.h"
#include "services/entity_factory.h"
#include "ui/select_2part_model.h"

namespace vs::project_resave::detail {

// A leaf for each scene, and below each the tree of its layers, as the scene groups them; the first scene is
// current. A scene of which a layer is invalid is marked invalid. Trees of other scenes stay.
void fill_scenes_2d(vs_prj* project, select_2part_model& model);
void fill_scenes_3d(vs_prj* project, select_2part_model& model);

// A leaf for each member, in place of what was there. Whoever showed that is told, since the error box lets
// the host look at its windows.
void fill_flat(vs_entities* collection, select_tree_node& root, event& changed);

// The items of each service that shows in the selection, below its heading if it has one; in place of what
// was there. An item without a uuid has no row, and nobody is told. No services: null.
void fill_services(const resave_services* services, select_tree_node& root);

} // namespace vs::project_resave::detail
