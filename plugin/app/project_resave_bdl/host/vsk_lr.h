// Host library vsk_lr: layers of either kind, their extra values, and the tree of layer groups of a scene.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership, texts and indexes. Layers and nodes belong to their scene; the result of a getter belongs to the
// layer or scene that it was called for.
//
// A node of the tree is a group with nodes below it, or it represents one layer of the scene and is destroyed
// with that layer.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the same layer as an entity.
vs_entity* vs_lr_safe_upcast(vs_lr* layer);
// Returns the entity as a layer; null if it is not one.
vs_lr* vs_lr_safe_downcast(vs_entity* entity);
// Passes the caption, as shown to the user.
void vs_lr_get_wcaption(vs_lr* layer, vs_string_adp* out);
// Passes the layer's file reference exactly as the layer stores it: a path, or a text with a mark such as
// "*".
void vs_lr_get_wfilename(vs_lr* layer, vs_string_adp* out);
// Replaces the file reference. If the layer's DBF table is the one next to the old file, with the same stem,
// it becomes the one next to the new file; its joins stay. No file is opened or moved.
void vs_lr_set_wfilename(vs_lr* layer, const char16_t* text);
// Passes the source text of the layer's data, for vs_datasource_open.
void vs_lr_get_wsource(vs_lr* layer, vs_string_adp* out);
// Returns the layer's type, such as "shp_pnt_lr2d", as narrow text. Never null: empty for a null layer. Valid
// as long as the layer.
const char* vs_lr_get_lr_type(vs_lr* layer);
// Returns the layer's own uuid, which is that of its entity.
vs_uuid* vs_lr_get_uuid(vs_lr* layer);
// True if the layer is shown in its scene.
bool vs_lr_get_visible(vs_lr* layer);
// Returns a vs_three_state: 0 valid, 1 invalid, 2 mixed.
uint32_t vs_lr_is_valid(vs_lr* layer);
// Returns the layer's data; null if it has none. vs_attr_data_safe_downcast finds out whether it is a table.
vs_data* vs_lr_get_data_ptr(vs_lr* layer);

// Returns the layer's extra values in the order in which they were entered; null only for a null layer. The
// table is valid until the next call for the same layer.
const vs_table_extra* vs_lr_get_table_extra(vs_lr* layer);
// Returns the value of a key, to read and to change; null if there is none. Keys are compared whole and with
// letter case.
vs_any* vs_lr_get_extra(vs_lr* layer, const char* key);

// Returns the layer's style manager, which defines how the layer is drawn; null if it has none.
vs_stl_mngr* vs_lr_get_style_mngr_ptr(vs_lr* layer);
// Returns the layer's list of style managers; null if it has none.
vs_stl_mngr_list* vs_lr_get_style_mngr_list_ptr(vs_lr* layer);

// Returns the number of nodes directly below the group; 0 for a layer's node.
uint32_t vs_lr_group_get_count_child(vs_lr_group* group);
// Returns a node of the group, a group or a layer's node; null at and beyond the count.
vs_lr_group* vs_lr_group_get_child_by_index(vs_lr_group* group, uint32_t index);
// True for a group, false for a layer's node.
bool vs_lr_group_is_group(vs_lr_group* node);
// Returns the node's layer; null for a group.
vs_lr* vs_lr_group_get_lr_ptr(vs_lr_group* node);
// Passes the caption of a group; the empty text for a layer's node.
void vs_lr_group_get_wcaption(vs_lr_group* node, vs_string_adp* out);
// Destroys all groups below this one that contain no layer at any depth; this one stays.
void vs_lr_group_erase_empty_group(vs_lr_group* group);
}
