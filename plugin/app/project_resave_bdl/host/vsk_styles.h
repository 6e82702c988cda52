// Host library vsk_styles: style managers, which define how a layer is drawn, and map legends. Implemented by
// the host, called by bundles on the main thread. host/types.h has the rules on null handles, ownership,
// texts and indexes. The manager and list of a layer belong to the layer, legends to the project.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the manager's type as narrow text. Never null: empty for a null manager. Valid until the manager is
// assigned to or destroyed.
const char* vs_stl_mngr_get_style_type(vs_stl_mngr* manager);
// Returns an empty manager of the type, owned by the caller.
vs_stl_mngr* vs_stl_mngr_create(const char* type);
// Copies everything in `source`, including its type.
void vs_stl_mngr_assign(vs_stl_mngr* target, vs_stl_mngr* source);
// Frees a manager made by vs_stl_mngr_create. A layer's manager must not be passed.
void vs_stl_mngr_destroy(vs_stl_mngr* manager);

// Returns the type of a list of style managers as narrow text. Never null: empty for a null list. Valid until
// the list is assigned to or destroyed.
const char* vs_stl_mngr_list_get_type(vs_stl_mngr_list* list);
// Returns an empty list of the type, owned by the caller.
vs_stl_mngr_list* vs_stl_mngr_list_create(const char* type);
// Copies everything in `source`, including its type.
void vs_stl_mngr_list_assign(vs_stl_mngr_list* target, vs_stl_mngr_list* source);
// Frees a list made by vs_stl_mngr_list_create. A layer's list must not be passed.
void vs_stl_mngr_list_destroy(vs_stl_mngr_list* list);

// Returns the number of map legends.
uint32_t vs_maplegs_get_size(vs_maplegs* legends);
// Returns a legend, which belongs to the project; null at and beyond the size.
vs_mapleg* vs_maplegs_get_ptr(vs_maplegs* legends, uint32_t index);
// Destroys the legend.
void vs_maplegs_delete_elem(vs_maplegs* legends, uint32_t index);
// Returns the legend's own uuid, which must not be destroyed.
vs_uuid* vs_mapleg_get_uuid(vs_mapleg* legend);
// Passes the title, as shown to the user.
void vs_mapleg_get_title(vs_mapleg* legend, vs_string_adp* out);
}
