// Host library vsk_styles: style managers and map legends.
#pragma once

#include "host/types.h"

extern "C" {

// A created manager or list is the caller's; assigning copies all that is in it.
const char* vs_stl_mngr_get_style_type(vs_stl_mngr* manager);
vs_stl_mngr* vs_stl_mngr_create(const char* type);
void vs_stl_mngr_assign(vs_stl_mngr* target, vs_stl_mngr* source);
void vs_stl_mngr_destroy(vs_stl_mngr* manager);
const char* vs_stl_mngr_list_get_type(vs_stl_mngr_list* list);
vs_stl_mngr_list* vs_stl_mngr_list_create(const char* type);
void vs_stl_mngr_list_assign(vs_stl_mngr_list* target, vs_stl_mngr_list* source);
void vs_stl_mngr_list_destroy(vs_stl_mngr_list* list);

uint32_t vs_maplegs_get_size(vs_maplegs* legends);
vs_mapleg* vs_maplegs_get_ptr(vs_maplegs* legends, uint32_t index);
void vs_maplegs_delete_elem(vs_maplegs* legends, uint32_t index);
vs_uuid* vs_mapleg_get_uuid(vs_mapleg* legend);
void vs_mapleg_get_title(vs_mapleg* legend, vs_string_adp* out);
}
