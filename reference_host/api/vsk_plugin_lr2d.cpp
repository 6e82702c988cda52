#include "host/vsk_plugin_lr2d.h"

#include "reference_host/api/calls.h"
#include "reference_host/api/layer_attachment.h"

using namespace vestra::api;

const vs_interface_pointer* vs_lr2d_get_plugin_interface(vs_lr* layer) {
    return on(layer, [](auto& model) -> const vs_interface_pointer* {
        return model.members ? attachment_of(model).compound_profile() : nullptr;
    });
}
