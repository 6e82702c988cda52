// Host library vsk_lr3d: 3D layers. Implemented by the host, called by bundles on the main thread.
// host/types.h has the rules on null handles, ownership and texts. Type and caption are what vsk_lr returns
// for the same layer.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the same handle if the layer is a 3D one; otherwise null.
vs_lr* vs_lr3d_safe_downcast(vs_lr* layer);
// Returns the layer's type as narrow text, never null; valid as long as the layer.
const char* vs_lr3d_get_lr_type(vs_lr* layer);
// Passes the caption, as shown to the user.
void vs_lr3d_get_wcaption(vs_lr* layer, vs_string_adp* out);
// Returns the DBF table of a 3D shape layer, which belongs to the layer; null if it has none, and for a 2D
// layer.
vs_attr_data* vs_shp_lr3d_get_attr_data_ptr(vs_lr* layer);
}
