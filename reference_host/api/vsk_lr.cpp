// The C functions of layers and of the tree of layer groups.
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "host/vsk_plugin_lr2d.h"
#include "host/vsk_shp_lr2d.h"
#include "platform/text.h"
#include "reference_host/api/calls.h"
#include "reference_host/api/layer_attachment.h"

using namespace vestra::api;

namespace {

// The attribute table of a shape file is the one next to it, so it follows when the layer refers to another
// file.
void refer_to(vestra::layer& layer, vestra::wide_view file) {
    using vestra::table_beside, vs::project_resave::platform::compare_no_case;
    // A table in another place was set on purpose and stays. An empty path is a layer without data, whose
    // table must not become ".dbf".
    if (layer.data && !file.empty() && compare_no_case(layer.data->file, table_beside(layer.file)) == 0)
        layer.data->file = table_beside(file);
    layer.file = file;
}

} // namespace

vs_entity* vs_lr_safe_upcast(vs_lr* layer) { return to_handle<vs_entity>(to_model(layer)); }

vs_lr* vs_lr_safe_downcast(vs_entity* entity) {
    return to_handle<vs_lr>(dynamic_cast<vestra::layer*>(to_model(entity)));
}

void vs_lr_get_wcaption(vs_lr* layer, vs_string_adp* out) { tell(out, layer, &vestra::layer::caption); }

void vs_lr_get_wfilename(vs_lr* layer, vs_string_adp* out) { tell(out, layer, &vestra::layer::file); }

void vs_lr_set_wfilename(vs_lr* layer, const char16_t* text) {
    on(layer, [&](auto& model) { refer_to(model, text_of(text)); });
}

void vs_lr_get_wsource(vs_lr* layer, vs_string_adp* out) { tell(out, layer, &vestra::layer::source); }

const char* vs_lr_get_lr_type(vs_lr* layer) { return layer ? to_model(layer)->type.c_str() : ""; }

vs_uuid* vs_lr_get_uuid(vs_lr* layer) {
    return on(layer, [](auto& model) { return to_handle<vs_uuid>(&model.id); });
}

bool vs_lr_get_visible(vs_lr* layer) {
    return on(layer, [](auto& model) { return model.visible; });
}

uint32_t vs_lr_is_valid(vs_lr* layer) {
    return on(layer, [](auto& model) { return static_cast<uint32_t>(model.validity); });
}

vs_data* vs_lr_get_data_ptr(vs_lr* layer) {
    return on(layer, [](auto& model) { return to_handle<vs_data>(model.data.get()); });
}

const vs_table_extra* vs_lr_get_table_extra(vs_lr* layer) {
    // Through the attachment, which keeps the record that is returned alive.
    return on(layer, [](auto& model) { return attachment_of(model).extras(model.extras); });
}

vs_any* vs_lr_get_extra(vs_lr* layer, const char* key) {
    return on(layer, [&](auto& model) { return to_handle<vs_any>(model.extras.find(text_of(key))); });
}

vs_stl_mngr* vs_lr_get_style_mngr_ptr(vs_lr* layer) {
    return on(layer, [](auto& model) { return to_handle<vs_stl_mngr>(model.style.get()); });
}

vs_stl_mngr_list* vs_lr_get_style_mngr_list_ptr(vs_lr* layer) {
    return on(layer, [](auto& model) { return to_handle<vs_stl_mngr_list>(model.styles.get()); });
}

uint32_t vs_lr_group_get_count_child(vs_lr_group* group) {
    return on(group, [](auto& node) { return node.count(); });
}

vs_lr_group* vs_lr_group_get_child_by_index(vs_lr_group* group, uint32_t index) {
    return member_of<vs_lr_group>(group, index);
}

bool vs_lr_group_is_group(vs_lr_group* node) {
    return on(node, [](auto& model) { return model.is_group(); });
}

vs_lr* vs_lr_group_get_lr_ptr(vs_lr_group* node) {
    return on(node, [](auto& model) { return to_handle<vs_lr>(model.member()); });
}

void vs_lr_group_get_wcaption(vs_lr_group* node, vs_string_adp* out) {
    tell(out, node, &vestra::layer_group::caption);
}

void vs_lr_group_erase_empty_group(vs_lr_group* group) {
    on(group, [](auto& node) { node.erase_empty_groups(); });
}

using namespace vestra::api;

// 2D and 3D layers have one class; only the kind differs.
vs_lr* vs_lr2d_safe_downcast(vs_lr* layer) {
    return layer && to_model(layer)->kind == vestra::dimension::flat ? layer : nullptr;
}

const char* vs_lr2d_get_lr_type(vs_lr* layer) { return vs_lr_get_lr_type(layer); }

void vs_lr2d_get_wcaption(vs_lr* layer, vs_string_adp* out) { vs_lr_get_wcaption(layer, out); }

void vs_lr2d_get_wfilename(vs_lr* layer, vs_string_adp* out) { vs_lr_get_wfilename(layer, out); }

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

using namespace vestra::api;

vs_attr_data* vs_shp_lr2d_get_attr_data_ptr(vs_lr* layer) {
    return on(vs_lr2d_safe_downcast(layer),
              [](auto& model) { return to_handle<vs_attr_data>(model.data.get()); });
}

using namespace vestra::api;

// Only compound profiles have the interface.
const vs_interface_pointer* vs_lr2d_get_plugin_interface(vs_lr* layer) {
    return on(layer, [](auto& model) -> const vs_interface_pointer* {
        return model.members ? attachment_of(model).compound_profile() : nullptr;
    });
}
