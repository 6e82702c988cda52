#include "host/vsk_lr3d.h"

#include "host/vsk_lr.h"
#include "reference_host/api/calls.h"

using namespace vestra::api;

vs_lr* vs_lr3d_safe_downcast(vs_lr* layer) {
    return layer && to_model(layer)->kind == vestra::dimension::solid ? layer : nullptr;
}

const char* vs_lr3d_get_lr_type(vs_lr* layer) { return vs_lr_get_lr_type(layer); }

void vs_lr3d_get_wcaption(vs_lr* layer, vs_string_adp* out) { vs_lr_get_wcaption(layer, out); }

vs_attr_data* vs_shp_lr3d_get_attr_data_ptr(vs_lr* layer) {
    return on(vs_lr3d_safe_downcast(layer),
              [](auto& model) { return to_handle<vs_attr_data>(model.data.get()); });
}
