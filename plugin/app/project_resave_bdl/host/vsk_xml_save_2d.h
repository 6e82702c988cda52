// Host library vsk_xml_save_2d: files of 2D scenes ("._sn") and 2D layers ("._lr"). Implemented by the host,
// called by bundles on the main thread. host/types.h has the rules on null handles, ownership and texts. The
// low byte of a result is 1 on success, 0 on failure; callers look at nothing else.
#pragma once

#include "host/types.h"

extern "C" {

// Returns a reader and writer, owned by the caller. It keeps no state between two calls.
vs_xml_save_2d* vs_xml_save_2d_create();
// Frees the reader and writer.
void vs_xml_save_2d_destroy(vs_xml_save_2d* xml);
// Reads a scene file and replaces the content of the scene. After a failure the scene is unchanged.
uint32_t vs_xml_data_load_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene);
// Writes the scene, replacing any file at the path; its folder must exist. After a failure an existing file
// is unchanged.
uint32_t vs_xml_data_save_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene);
// Writes the layer in the same way. Returns 0 for a 3D layer and writes nothing.
uint32_t vs_xml_data_save_lr2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_lr* layer);
}
