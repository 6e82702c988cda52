// Host library vsk_shp_lr2d: 2D shape layers. Implemented by the host, called by bundles on the main thread.
// host/types.h has the rules on null handles and ownership.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the DBF table of a 2D shape layer, which belongs to the layer; null if it has none, and for a 3D
// layer.
vs_attr_data* vs_shp_lr2d_get_attr_data_ptr(vs_lr* layer);
}
