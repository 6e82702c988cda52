// Host library vsk_scn_2d: 2D scenes and their collections, and what scenes of both kinds have in common.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership, texts and indexes.
//
// Layouts, well sheets, correlation sheets and the contents of legends are 2D scenes too. A scene belongs to
// its collection, a layer to its scene. Layers are in the order of the scene's own list, which is not the
// order of its groups.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the collection as a container of entities, its scenes.
vs_entities* vs_scns_2d_safe_upcast(vs_scns_2d* scenes);
// Returns the number of scenes.
uint32_t vs_scns_2d_get_size(vs_scns_2d* scenes);
// Returns a scene, which belongs to the collection; null at and beyond the size.
vs_scn_2d* vs_scns_2d_get(vs_scns_2d* scenes, uint32_t index);
// Destroys the scene with its layers and groups.
void vs_scns_2d_del(vs_scns_2d* scenes, uint32_t index);

// Returns an empty scene outside any project, owned by the caller.
vs_scn_2d* vs_scn_2d_create();
// Frees a scene made by vs_scn_2d_create. Scenes of a project must not be passed.
void vs_scn_2d_destroy(vs_scn_2d* scene);
// Returns the scene as a container of entities, its layers.
vs_entities* vs_scn_2d_safe_upcast(vs_scn_2d* scene);
// Returns the entity as a 2D scene; null if it is not one.
vs_scn_2d* vs_scn_2d_safe_downcast(vs_entity* entity);
// Passes the caption, as shown to the user.
void vs_scn_2d_get_wcaption(vs_scn_2d* scene, vs_string_adp* out);
// Returns the number of layers.
uint32_t vs_scn_2d_get_layer_count(vs_scn_2d* scene);
// Returns a layer, which belongs to the scene; null at and beyond the count.
vs_lr* vs_scn_2d_get_layer_ptr(vs_scn_2d* scene, uint32_t index);
// Destroys the layer and removes it from the groups; a group that becomes empty stays.
void vs_scn_2d_del_lr2d(vs_scn_2d* scene, uint32_t index);
// Returns the root of the tree of layer groups (vsk_lr), which belongs to the scene; null if it has none.
vs_lr_group* vs_scn_2d_get_lr_group_ptr(vs_scn_2d* scene);
// Passes the path of the file that a well sheet or a correlation sheet is made from; the empty text for other
// scenes.
void vs_scn_2d_get_source(vs_scn_2d* scene, vs_string_adp* out);
// Replaces that path. No file is opened or moved.
void vs_scn_2d_set_source(vs_scn_2d* scene, const char16_t* path);

// Returns a scene of either kind, whose handle converts to vs_scn, as a container of entities, its layers.
vs_entities* vs_scn_safe_upcast(vs_scn* scene);
// Passes the caption, as shown to the user.
void vs_scn_get_wcaption(vs_scn* scene, vs_string_adp* out);
// Returns the root of the tree of layer groups (vsk_lr), which belongs to the scene; null if it has none.
vs_lr_group* vs_scn_get_lr_group_ptr(vs_scn* scene);
// Returns the number of layers.
uint32_t vs_scn_get_count(vs_scn* scene);
// Returns a layer, which belongs to the scene; null at and beyond the count.
vs_lr* vs_scn_get_layer(vs_scn* scene, uint32_t index);
}
