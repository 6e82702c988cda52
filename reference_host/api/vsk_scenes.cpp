// The C functions of scenes and their collections: 2D, 3D and layouts.
#include "host/vsk_layout.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "reference_host/api/calls.h"
#include "reference_host/api/layer_attachment.h"

using namespace vestra::api;
using vestra::scene;

vs_entities* vs_scns_2d_safe_upcast(vs_scns_2d* scenes) { return to_handle<vs_entities>(to_model(scenes)); }

uint32_t vs_scns_2d_get_size(vs_scns_2d* scenes) { return count_of(scenes); }

vs_scn_2d* vs_scns_2d_get(vs_scns_2d* scenes, uint32_t index) { return member_of<vs_scn_2d>(scenes, index); }

void vs_scns_2d_del(vs_scns_2d* scenes, uint32_t index) { remove_member(scenes, index); }

vs_scn_2d* vs_scn_2d_create() { return create<vs_scn_2d>(vestra::dimension::flat); }

void vs_scn_2d_destroy(vs_scn_2d* scene_2d) { destroy(scene_2d); }

vs_entities* vs_scn_2d_safe_upcast(vs_scn_2d* scene_2d) { return vs_scn_safe_upcast(scene_2d); }

// 2D and 3D scenes have one class, so the kind is checked in addition to the class.
vs_scn_2d* vs_scn_2d_safe_downcast(vs_entity* entity) {
    auto* found = dynamic_cast<vestra::scene*>(to_model(entity));
    return found && found->kind == vestra::dimension::flat ? to_handle<vs_scn_2d>(found) : nullptr;
}

void vs_scn_2d_get_wcaption(vs_scn_2d* scene_2d, vs_string_adp* out) { vs_scn_get_wcaption(scene_2d, out); }

uint32_t vs_scn_2d_get_layer_count(vs_scn_2d* scene_2d) { return count_of(scene_2d); }

vs_lr* vs_scn_2d_get_layer_ptr(vs_scn_2d* scene_2d, uint32_t index) {
    return member_of<vs_lr>(scene_2d, index);
}

void vs_scn_2d_del_lr2d(vs_scn_2d* scene_2d, uint32_t index) { remove_member(scene_2d, index); }

vs_lr_group* vs_scn_2d_get_lr_group_ptr(vs_scn_2d* scene_2d) { return vs_scn_get_lr_group_ptr(scene_2d); }

void vs_scn_2d_get_source(vs_scn_2d* scene_2d, vs_string_adp* out) { tell(out, scene_2d, &scene::source); }

void vs_scn_2d_set_source(vs_scn_2d* scene_2d, const char16_t* path) {
    on(scene_2d, [&](auto& model) { model.source = text_of(path); });
}

vs_entities* vs_scn_safe_upcast(vs_scn* any_scene) { return to_handle<vs_entities>(to_model(any_scene)); }

void vs_scn_get_wcaption(vs_scn* any_scene, vs_string_adp* out) { tell(out, any_scene, &scene::caption); }

// Null for a scene without groups, even if it has layers.
vs_lr_group* vs_scn_get_lr_group_ptr(vs_scn* any_scene) {
    return on(any_scene, [](auto& model) { return to_handle<vs_lr_group>(model.groups.get()); });
}

uint32_t vs_scn_get_count(vs_scn* any_scene) { return count_of(any_scene); }

vs_lr* vs_scn_get_layer(vs_scn* any_scene, uint32_t index) { return member_of<vs_lr>(any_scene, index); }

using namespace vestra::api;

vs_entities* vs_scns_3d_safe_upcast(vs_scns_3d* scenes) { return to_handle<vs_entities>(to_model(scenes)); }

uint32_t vs_scns_3d_get_size(vs_scns_3d* scenes) { return count_of(scenes); }

vs_scn_3d* vs_scns_3d_get(vs_scns_3d* scenes, uint32_t index) { return member_of<vs_scn_3d>(scenes, index); }

void vs_scns_3d_del(vs_scns_3d* scenes, uint32_t index) { remove_member(scenes, index); }

vs_entities* vs_scn_3d_safe_upcast(vs_scn_3d* scene_3d) { return vs_scn_safe_upcast(scene_3d); }

vs_scn_3d* vs_scn_3d_safe_downcast(vs_entity* entity) {
    auto* found = dynamic_cast<vestra::scene*>(to_model(entity));
    return found && found->kind == vestra::dimension::solid ? to_handle<vs_scn_3d>(found) : nullptr;
}

void vs_scn_3d_get_wcaption(vs_scn_3d* scene_3d, vs_string_adp* out) { vs_scn_get_wcaption(scene_3d, out); }

uint32_t vs_scn_3d_get_layer_count(vs_scn_3d* scene_3d) { return count_of(scene_3d); }

vs_lr* vs_scn_3d_get_layer_ptr(vs_scn_3d* scene_3d, uint32_t index) {
    return member_of<vs_lr>(scene_3d, index);
}

void vs_scn_3d_del_lr3d(vs_scn_3d* scene_3d, uint32_t index) { remove_member(scene_3d, index); }

using namespace vestra::api;

vs_lr* vs_scn_layout_get_page_lr2d(vs_scn_2d* layout) {
    return on(layout, [](auto& model) { return to_handle<vs_lr>(model.page.get()); });
}

vs_scn* vs_layout_scene_frame_lr2d_get_scene(vs_lr* frame) {
    return on(frame,
              [](auto& model) { return to_handle<vs_scn>(model.frame ? model.frame->get() : nullptr); });
}

// Only a legend with a scene has the interface; a plain legend and every other layer give null.
const vs_interface_pointer* vs_layout_lr2d_get_plugin_interface(vs_lr* layer) {
    return on(layer, [](auto& model) -> const vs_interface_pointer* {
        return model.legend ? attachment_of(model).layout_legend() : nullptr;
    });
}
