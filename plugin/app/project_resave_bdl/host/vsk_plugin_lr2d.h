// Host library vsk_plugin_lr2d: 2D layers that a plug-in draws. Implemented by the host, called by bundles on
// the main thread. host/types.h has the rules on null handles and ownership.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the address of the identity of the layer's plug-in; null if the layer has none. The address and the
// plug-in are valid as long as the layer. A compound profile implements
// host/interfaces/profile_compound_layer.h.
const vs_interface_pointer* vs_lr2d_get_plugin_interface(vs_lr* layer);
}
