#include "host/vsk_shp_lr2d.h"

#include "host/vsk_lr2d.h"
#include "reference_host/api/calls.h"

using namespace vestra::api;

vs_attr_data* vs_shp_lr2d_get_attr_data_ptr(vs_lr* layer) {
    return on(vs_lr2d_safe_downcast(layer),
              [](auto& model) { return to_handle<vs_attr_data>(model.data.get()); });
}
