// Host library vsk_prj: the project and its containers. Containers belong to the project.
#pragma once

#include "host/types.h"

extern "C" {

// A new empty project, owned by the caller. Destroying it frees all its containers and what is in them.
vs_prj* vs_prj_create();
void vs_prj_destroy(vs_prj* project);
// The project open in the host, not owned; null when none is.
vs_prj* vs_prj_get_instance();
void vs_prj_get_filename(vs_prj* project, vs_string_adp* out);

vs_scns_2d* vs_prj_get_scns_2d_ptr(vs_prj* project);
vs_scns_3d* vs_prj_get_scns_3d_ptr(vs_prj* project);
vs_toss_data* vs_prj_get_toss_data_ptr(vs_prj* project);
vs_scns_2d* vs_prj_get_layouts_data_ptr(vs_prj* project);
vs_attrs_data* vs_prj_get_attrs_data_ptr(vs_prj* project);
uint32_t vs_prj_get_plugin_scns_2d_count(vs_prj* project);
vs_scns_2d* vs_prj_get_plugin_scns_2d_ptr(vs_prj* project, uint32_t index);
vs_maplegs* vs_prj_get_maplegs_ptr(vs_prj* project);
}
