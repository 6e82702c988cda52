#include "host/vsk_layout.h"

#include "reference_host/api/calls.h"
#include "reference_host/api/layer_attachment.h"

using namespace vestra::api;

vs_lr* vs_scn_layout_get_page_lr2d(vs_scn_2d* layout) {
    return on(layout, [](auto& model) { return to_handle<vs_lr>(model.page.get()); });
}

vs_scn* vs_layout_scene_frame_lr2d_get_scene(vs_lr* frame) {
    return on(frame,
              [](auto& model) { return to_handle<vs_scn>(model.frame ? model.frame->get() : nullptr); });
}

const vs_interface_pointer* vs_layout_lr2d_get_plugin_interface(vs_lr* layer) {
    return on(layer, [](auto& model) -> const vs_interface_pointer* {
        return model.legend ? attachment_of(model).layout_legend() : nullptr;
    });
}
