// Host library vsk_lr2d: 2D layers.
#pragma once

#include "host/types.h"

extern "C" {

// The layer itself if it is a 2D one, else null.
vs_lr* vs_lr2d_safe_downcast(vs_lr* layer);
const char* vs_lr2d_get_lr_type(vs_lr* layer);
void vs_lr2d_get_wcaption(vs_lr* layer, vs_string_adp* out);
void vs_lr2d_get_wfilename(vs_lr* layer, vs_string_adp* out);
}
