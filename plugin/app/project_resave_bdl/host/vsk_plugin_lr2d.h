// Host library vsk_plugin_lr2d: 2D layers that a plug-in draws.
#pragma once

#include "host/types.h"

extern "C" {

// Address of the identity interface of the layer's plug-in, which belongs to the layer; null if it has none.
const vs_interface_pointer* vs_lr2d_get_plugin_interface(vs_lr* layer);
}
