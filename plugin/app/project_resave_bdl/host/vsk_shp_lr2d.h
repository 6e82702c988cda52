// Host library vsk_shp_lr2d: 2D shape layers.
#pragma once

#include "host/types.h"

extern "C" {

// Attribute data of a 2D shape layer, not owned, or null.
vs_attr_data* vs_shp_lr2d_get_attr_data_ptr(vs_lr* layer);
}
