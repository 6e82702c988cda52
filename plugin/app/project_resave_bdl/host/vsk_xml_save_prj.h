// Host library vsk_xml_save_prj: reader and writer of project files, one object for both.
#pragma once

#include "host/types.h"

extern "C" {

vs_xml_save_prj* vs_xml_save_prj_create();
void vs_xml_save_prj_destroy(vs_xml_save_prj* xml);
// The low byte of a result is true on success. A failed load leaves the project as it was.
uint32_t vs_xml_data_load_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project);
uint32_t vs_xml_data_save_prj_w(vs_xml_save_prj* xml, const char16_t* path, vs_prj* project);
}
