// Host library vsk_lr: layers of either kind, their extra values, and the tree of layer groups of a scene.
#pragma once

#include "host/types.h"

extern "C" {

vs_entity* vs_lr_safe_upcast(vs_lr* layer);
// The layer that the entity is, or null.
vs_lr* vs_lr_safe_downcast(vs_entity* entity);
void vs_lr_get_wcaption(vs_lr* layer, vs_string_adp* out);
// The layer's file reference, exactly as the layer holds it.
void vs_lr_get_wfilename(vs_lr* layer, vs_string_adp* out);
void vs_lr_set_wfilename(vs_lr* layer, const char16_t* text);
// Source text of the layer's data, for the vector data source.
void vs_lr_get_wsource(vs_lr* layer, vs_string_adp* out);
// Narrow layer type, never null; lives as long as the layer.
const char* vs_lr_get_lr_type(vs_lr* layer);
vs_uuid* vs_lr_get_uuid(vs_lr* layer);
bool vs_lr_get_visible(vs_lr* layer);
// Three-state: 1 is invalid.
uint32_t vs_lr_is_valid(vs_lr* layer);
// The layer's data, not owned; null if it has none.
vs_data* vs_lr_get_data_ptr(vs_lr* layer);

// The layer's extra values. The table lives until the next call for the same layer.
const vs_table_extra* vs_lr_get_table_extra(vs_lr* layer);
// The value under a narrow key, not owned, or null.
vs_any* vs_lr_get_extra(vs_lr* layer, const char* key);

// Style manager and list of the layer, not owned; each may be null.
vs_stl_mngr* vs_lr_get_style_mngr_ptr(vs_lr* layer);
vs_stl_mngr_list* vs_lr_get_style_mngr_list_ptr(vs_lr* layer);

// Nodes of the tree of groups. A node is a group, or it stands for one layer.
uint32_t vs_lr_group_get_count_child(vs_lr_group* group);
vs_lr_group* vs_lr_group_get_child_by_index(vs_lr_group* group, uint32_t index);
bool vs_lr_group_is_group(vs_lr_group* node);
vs_lr* vs_lr_group_get_lr_ptr(vs_lr_group* node);
void vs_lr_group_get_wcaption(vs_lr_group* node, vs_string_adp* out);
// Removes all groups below this one that hold no layer at any depth.
void vs_lr_group_erase_empty_group(vs_lr_group* group);
}
