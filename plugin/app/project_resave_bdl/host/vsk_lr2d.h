// Host library vsk_lr2d: 2D layers. Implemented by the host, called by bundles on the main thread.
// host/types.h has the rules on null handles, ownership and texts. The three getters return what those of
// vsk_lr return for the same layer.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the same handle if the layer is a 2D one; otherwise null.
vs_lr* vs_lr2d_safe_downcast(vs_lr* layer);
// Returns the layer's type as narrow text, never null; valid as long as the layer.
const char* vs_lr2d_get_lr_type(vs_lr* layer);
// Passes the caption, as shown to the user.
void vs_lr2d_get_wcaption(vs_lr* layer, vs_string_adp* out);
// Passes the layer's file reference exactly as the layer stores it.
void vs_lr2d_get_wfilename(vs_lr* layer, vs_string_adp* out);
}
