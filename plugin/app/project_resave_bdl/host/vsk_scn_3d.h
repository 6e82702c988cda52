// Host library vsk_scn_3d: 3D scenes and their collection. Indexes as in vsk_scn_2d.
#pragma once

#include "host/types.h"

extern "C" {

vs_entities* vs_scns_3d_safe_upcast(vs_scns_3d* scenes);
uint32_t vs_scns_3d_get_size(vs_scns_3d* scenes);
vs_scn_3d* vs_scns_3d_get(vs_scns_3d* scenes, uint32_t index);
void vs_scns_3d_del(vs_scns_3d* scenes, uint32_t index);

vs_entities* vs_scn_3d_safe_upcast(vs_scn_3d* scene);
// The 3D scene that the entity is, or null.
vs_scn_3d* vs_scn_3d_safe_downcast(vs_entity* entity);
void vs_scn_3d_get_wcaption(vs_scn_3d* scene, vs_string_adp* out);
uint32_t vs_scn_3d_get_layer_count(vs_scn_3d* scene);
vs_lr* vs_scn_3d_get_layer_ptr(vs_scn_3d* scene, uint32_t index);
void vs_scn_3d_del_lr3d(vs_scn_3d* scene, uint32_t index);
}
