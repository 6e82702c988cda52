// Host library vsk_layout: layouts, which are 2D scenes with a page, frames and legends.
#pragma once

#include "host/types.h"

extern "C" {

// The page layer of a layout, not among the scene's layers; null if it has none.
vs_lr* vs_scn_layout_get_page_lr2d(vs_scn_2d* layout);
// The scene of the project that a frame shows, not owned, or null.
vs_scn* vs_layout_scene_frame_lr2d_get_scene(vs_lr* frame);
// Address of the identity interface of a layout layer's plug-in, which belongs to the layer; null without
// one.
const vs_interface_pointer* vs_layout_lr2d_get_plugin_interface(vs_lr* layer);
}
