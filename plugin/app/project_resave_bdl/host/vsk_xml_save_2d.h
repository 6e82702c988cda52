// Host library vsk_xml_save_2d: files of 2D scenes ("._sn") and 2D layers ("._lr").
#pragma once

#include "host/types.h"

extern "C" {

vs_xml_save_2d* vs_xml_save_2d_create();
void vs_xml_save_2d_destroy(vs_xml_save_2d* xml);
// The low byte of a result is true on success. A failed load leaves the scene as it was.
uint32_t vs_xml_data_load_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene);
uint32_t vs_xml_data_save_scn2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_scn_2d* scene);
uint32_t vs_xml_data_save_lr2d_w(vs_xml_save_2d* xml, const char16_t* path, vs_lr* layer);
}
