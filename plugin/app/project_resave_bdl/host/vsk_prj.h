// Host library vsk_prj: the project and its containers. Implemented by the host, called by bundles on the
// main thread. host/types.h has the rules on null handles, ownership, texts and indexes. Containers belong to
// the project and exist, perhaps empty, as long as it does. Reading a file into the project replaces their
// content, and the plug-in collections themselves.
#pragma once

#include "host/types.h"

extern "C" {

// Returns a new project with empty containers, owned by the caller.
vs_prj* vs_prj_create();
// Frees the project with its containers and everything in them; all handles obtained from it become invalid.
void vs_prj_destroy(vs_prj* project);
// Returns the project that is open in the host, which owns it; null if none is open.
vs_prj* vs_prj_get_instance();
// Passes the path of the file that the project was read from; the empty text for a new project. Writing the
// project to another file does not change it.
void vs_prj_get_filename(vs_prj* project, vs_string_adp* out);

// Returns the 2D scenes.
vs_scns_2d* vs_prj_get_scns_2d_ptr(vs_prj* project);
// Returns the 3D scenes.
vs_scns_3d* vs_prj_get_scns_3d_ptr(vs_prj* project);
// Returns the OAT tables.
vs_toss_data* vs_prj_get_toss_data_ptr(vs_prj* project);
// Returns the layouts, which are 2D scenes too.
vs_scns_2d* vs_prj_get_layouts_data_ptr(vs_prj* project);
// Returns the DBF tables.
vs_attrs_data* vs_prj_get_attrs_data_ptr(vs_prj* project);
// Returns the number of plug-in collections of 2D scenes, such as well sheets.
uint32_t vs_prj_get_plugin_scns_2d_count(vs_prj* project);
// Returns one of these collections, identified by its meta identifier; null at and beyond the count.
vs_scns_2d* vs_prj_get_plugin_scns_2d_ptr(vs_prj* project, uint32_t index);
// Returns the map legends.
vs_maplegs* vs_prj_get_maplegs_ptr(vs_prj* project);
}
