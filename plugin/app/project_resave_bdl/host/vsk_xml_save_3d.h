// Host library vsk_xml_save_3d: files of 3D scenes ("._sc") and 3D layers ("._lrd").
#pragma once

#include "host/types.h"

extern "C" {

vs_xml_save_3d* vs_xml_save_3d_create();
void vs_xml_save_3d_destroy(vs_xml_save_3d* xml);
// The low byte of a result is true on success.
uint32_t vs_xml_data_save_scn3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_scn_3d* scene);
uint32_t vs_xml_data_save_lr3d_w(vs_xml_save_3d* xml, const char16_t* path, vs_lr* layer);
}
