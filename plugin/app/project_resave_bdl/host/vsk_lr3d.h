// Host library vsk_lr3d: 3D layers.
#pragma once

#include "host/types.h"

extern "C" {

// The layer itself if it is a 3D one, else null.
vs_lr* vs_lr3d_safe_downcast(vs_lr* layer);
const char* vs_lr3d_get_lr_type(vs_lr* layer);
void vs_lr3d_get_wcaption(vs_lr* layer, vs_string_adp* out);
// Attribute data of a 3D shape layer, not owned, or null.
vs_attr_data* vs_shp_lr3d_get_attr_data_ptr(vs_lr* layer);
}
