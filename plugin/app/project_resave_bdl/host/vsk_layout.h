// Host library vsk_layout: layouts, which are 2D scenes with a page, frames and legends. Implemented by the
// host, called by bundles on the main thread. host/types.h has the rules on null handles and ownership. The
// caller owns none of the results.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the page layer of a layout, which is not among the scene's layers; null if the layout has no page.
vs_lr* vs_scn_layout_get_page_lr2d(vs_scn_2d* layout);
// Returns the scene of the project that a frame shows; null if the layer is not a frame, or if the scene is
// not, or no longer, in the project. The scene's layers are the project's.
vs_scn* vs_layout_scene_frame_lr2d_get_scene(vs_lr* frame);
// Returns the address of the identity of a layout layer's plug-in; null without a plug-in. The address and
// the plug-in are valid as long as the layer. A legend implements host/interfaces/layout_legend_layer.h.
const vs_interface_pointer* vs_layout_lr2d_get_plugin_interface(vs_lr* layer);
}
