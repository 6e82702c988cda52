// Host library vsk_xml_save_3d: files of 3D scenes ("._sc") and 3D layers ("._lrd"). Implemented by the host,
// called by bundles on the main thread. host/types.h has the rules on null handles, ownership and texts. The
// low byte of a result is 1 on success, 0 on failure; callers look at nothing else.
#pragma once

#include "host/types.h"

extern "C" {

// Returns a writer, owned by the caller. It keeps no state between two calls.
vs_xml_save_3d* vs_xml_save_3d_create();
// Frees the writer.
void vs_xml_save_3d_destroy(vs_xml_save_3d* xml);
// Writes the scene, replacing any file at the path; its folder must exist. After a failure an existing file
// is unchanged.
uint32_t vs_xml_data_save_scn3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_scn_3d* scene);
// Writes the layer in the same way. Returns 0 for a 2D layer and writes nothing.
uint32_t vs_xml_data_save_lr3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_lr* layer);
}
