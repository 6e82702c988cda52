#include "host/vsk_styles.h"

#include "reference_host/api/calls.h"

using namespace vestra::api;

const char* vs_stl_mngr_get_style_type(vs_stl_mngr* manager) {
    return manager ? to_model(manager)->type.c_str() : "";
}

vs_stl_mngr* vs_stl_mngr_create(const char* type) {
    return guarded([&] { return create<vs_stl_mngr>(std::string(text_of(type))); });
}

void vs_stl_mngr_assign(vs_stl_mngr* target, vs_stl_mngr* source) { assign(target, source); }

void vs_stl_mngr_destroy(vs_stl_mngr* manager) { destroy(manager); }

const char* vs_stl_mngr_list_get_type(vs_stl_mngr_list* list) {
    return list ? to_model(list)->type.c_str() : "";
}

vs_stl_mngr_list* vs_stl_mngr_list_create(const char* type) {
    return guarded([&] { return create<vs_stl_mngr_list>(std::string(text_of(type))); });
}

void vs_stl_mngr_list_assign(vs_stl_mngr_list* target, vs_stl_mngr_list* source) { assign(target, source); }

void vs_stl_mngr_list_destroy(vs_stl_mngr_list* list) { destroy(list); }

uint32_t vs_maplegs_get_size(vs_maplegs* legends) { return count_of(legends); }

vs_mapleg* vs_maplegs_get_ptr(vs_maplegs* legends, uint32_t index) {
    return member_of<vs_mapleg>(legends, index);
}

void vs_maplegs_delete_elem(vs_maplegs* legends, uint32_t index) { remove_member(legends, index); }

vs_uuid* vs_mapleg_get_uuid(vs_mapleg* legend) {
    return on(legend, [](auto& model) { return to_handle<vs_uuid>(&model.id); });
}

void vs_mapleg_get_title(vs_mapleg* legend, vs_string_adp* out) {
    tell(out, legend, &vestra::map_legend::caption);
}
