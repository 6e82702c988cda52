// Host library vsk_scn_3d: 3D scenes and their collection. What both kinds of scenes have is in vsk_scn_2d.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership, texts and indexes. A scene belongs to its collection, a layer to its scene.
// Layers are in the order of the scene's own list, which is not the order of its groups.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the collection as a container of entities, its scenes.
vs_entities* vs_scns_3d_safe_upcast(vs_scns_3d* scenes);
// Returns the number of scenes.
uint32_t vs_scns_3d_get_size(vs_scns_3d* scenes);
// Returns a scene, which belongs to the collection; null at and beyond the size.
vs_scn_3d* vs_scns_3d_get(vs_scns_3d* scenes, uint32_t index);
// Destroys the scene with its layers and groups.
void vs_scns_3d_del(vs_scns_3d* scenes, uint32_t index);

// Returns the scene as a container of entities, its layers.
vs_entities* vs_scn_3d_safe_upcast(vs_scn_3d* scene);
// Returns the entity as a 3D scene; null if it is not one.
vs_scn_3d* vs_scn_3d_safe_downcast(vs_entity* entity);
// Passes the caption, as shown to the user.
void vs_scn_3d_get_wcaption(vs_scn_3d* scene, vs_string_adp* out);
// Returns the number of layers.
uint32_t vs_scn_3d_get_layer_count(vs_scn_3d* scene);
// Returns a layer, which belongs to the scene; null at and beyond the count.
vs_lr* vs_scn_3d_get_layer_ptr(vs_scn_3d* scene, uint32_t index);
// Destroys the layer and removes it from the groups; a group that becomes empty stays.
void vs_scn_3d_del_lr3d(vs_scn_3d* scene, uint32_t index);
}
