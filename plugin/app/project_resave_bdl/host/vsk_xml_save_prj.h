// Host library vsk_xml_save_prj: reader and writer of project files ("._vp"), one object for both.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership and texts. The low byte of a result is 1 on success, 0 on failure; callers look at nothing else.
#pragma once

#include "host/types.h"

extern "C" {

// Returns a reader and writer, owned by the caller. It keeps no state between two calls.
vs_xml_save_prj* vs_xml_save_prj_create();
// Frees the reader and writer.
void vs_xml_save_prj_destroy(vs_xml_save_prj* xml);
// Reads the file and replaces the content of the project, whose file name is `path` from now on. After a
// failure the project is unchanged.
uint32_t vs_xml_data_load_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project);
// Writes the project, replacing any file at the path; its folder must exist. After a failure an existing file
// is unchanged. The project and its file name do not change.
uint32_t vs_xml_data_save_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project);
}
