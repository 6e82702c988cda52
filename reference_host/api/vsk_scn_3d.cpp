#include "host/vsk_scn_3d.h"

#include "host/vsk_scn_2d.h"
#include "reference_host/api/calls.h"

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
