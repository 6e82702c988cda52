// Host library vsk_scn_2d: 2D scenes and their collections, and what scenes of both kinds have in common.
// Layers are in the order of the scene's own list. Deleting by index moves the members behind it down; an
// index at or above the count is ignored.
#pragma once

#include "host/types.h"

extern "C" {

vs_entities* vs_scns_2d_safe_upcast(vs_scns_2d* scenes);
uint32_t vs_scns_2d_get_size(vs_scns_2d* scenes);
vs_scn_2d* vs_scns_2d_get(vs_scns_2d* scenes, uint32_t index);
void vs_scns_2d_del(vs_scns_2d* scenes, uint32_t index);

// An empty scene outside of any project, owned by the caller.
vs_scn_2d* vs_scn_2d_create();
void vs_scn_2d_destroy(vs_scn_2d* scene);
vs_entities* vs_scn_2d_safe_upcast(vs_scn_2d* scene);
// The 2D scene that the entity is, or null.
vs_scn_2d* vs_scn_2d_safe_downcast(vs_entity* entity);
void vs_scn_2d_get_wcaption(vs_scn_2d* scene, vs_string_adp* out);
uint32_t vs_scn_2d_get_layer_count(vs_scn_2d* scene);
vs_lr* vs_scn_2d_get_layer_ptr(vs_scn_2d* scene, uint32_t index);
void vs_scn_2d_del_lr2d(vs_scn_2d* scene, uint32_t index);
// Root of the tree of layer groups, or null.
vs_lr_group* vs_scn_2d_get_lr_group_ptr(vs_scn_2d* scene);
// The file a well sheet or a correlation sheet is made from.
void vs_scn_2d_get_source(vs_scn_2d* scene, vs_string_adp* out);
void vs_scn_2d_set_source(vs_scn_2d* scene, const char16_t* path);

// Scenes of either kind.
vs_entities* vs_scn_safe_upcast(vs_scn* scene);
void vs_scn_get_wcaption(vs_scn* scene, vs_string_adp* out);
vs_lr_group* vs_scn_get_lr_group_ptr(vs_scn* scene);
uint32_t vs_scn_get_count(vs_scn* scene);
vs_lr* vs_scn_get_layer(vs_scn* scene, uint32_t index);
}
