// The C functions of the open project, its containers and its style managers.
#include "host/vsk_prj.h"
#include "host/vsk_entity.h"
#include "host/vsk_styles.h"
#include "reference_host/api/calls.h"
#include "reference_host/shell/front_end.h"

using namespace vestra::api;
using vestra::shell::settings;

vs_prj* vs_prj_create() { return create<vs_prj>(); }

void vs_prj_destroy(vs_prj* project) {
    // Nothing may find the project once it is destroyed.
    if (to_model(project) == settings().open_project) settings().open_project = nullptr;
    destroy(project);
}

vs_prj* vs_prj_get_instance() { return to_handle<vs_prj>(settings().open_project); }

void vs_prj_get_filename(vs_prj* project, vs_string_adp* out) { tell(out, project, &vestra::project::file); }

vs_scns_2d* vs_prj_get_scns_2d_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_scns_2d>(&model.scenes_2d); });
}

vs_scns_3d* vs_prj_get_scns_3d_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_scns_3d>(&model.scenes_3d); });
}

vs_toss_data* vs_prj_get_toss_data_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_toss_data>(&model.tos_tables); });
}

vs_scns_2d* vs_prj_get_layouts_data_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_scns_2d>(&model.layouts); });
}

vs_attrs_data* vs_prj_get_attrs_data_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_attrs_data>(&model.tables); });
}

uint32_t vs_prj_get_plugin_scns_2d_count(vs_prj* project) {
    return on(project, [](auto& model) { return static_cast<uint32_t>(model.plugin_scenes.size()); });
}

vs_scns_2d* vs_prj_get_plugin_scns_2d_ptr(vs_prj* project, uint32_t index) {
    return on(project, [&](auto& model) {
        const auto& collections = model.plugin_scenes;
        return to_handle<vs_scns_2d>(index < collections.size() ? collections[index].get() : nullptr);
    });
}

vs_maplegs* vs_prj_get_maplegs_ptr(vs_prj* project) {
    return on(project, [](auto& model) { return to_handle<vs_maplegs>(&model.map_legends); });
}

using namespace vestra::api;

// Not a copy: the handle is valid as long as the entity.
vs_uuid* vs_entity_get_uuid(vs_entity* entity) {
    return on(entity, [](auto& element) { return to_handle<vs_uuid>(&element.id); });
}

void vs_entity_get_wcaption(vs_entity* entity, vs_string_adp* out) {
    tell(out, entity, &vestra::entity::caption);
}

// Never null for an entity, so callers may compare it directly; a null handle gives the empty text.
const char* vs_entity_get_meta_id(vs_entity* entity) {
    return entity ? to_model(entity)->meta_id.c_str() : "";
}

vs_entity* vs_entity_get_parent(vs_entity* entity) {
    return on(entity, [](auto& element) { return to_handle<vs_entity>(element.parent.get()); });
}

uint32_t vs_entity_is_valid(vs_entity* entity) {
    return on(entity, [](auto& element) { return static_cast<uint32_t>(element.validity); });
}

vs_entity* vs_entities_safe_upcast(vs_entities* container) {
    return to_handle<vs_entity>(to_model(container));
}

// Scenes are containers as well as entities; a layer is only an entity.
vs_entities* vs_entities_safe_downcast(vs_entity* entity) {
    return to_handle<vs_entities>(dynamic_cast<vestra::entity_list*>(to_model(entity)));
}

uint32_t vs_entities_get_count(vs_entities* container) { return count_of(container); }

vs_entity* vs_entities_get_entity(vs_entities* container, uint32_t index) {
    return member_of<vs_entity>(container, index);
}

void vs_entities_clear(vs_entities* container) {
    on(container, [](auto& list) { list.clear(); });
}

using namespace vestra::api;

const char* vs_stl_mngr_get_style_type(vs_stl_mngr* manager) {
    return manager ? to_model(manager)->type.c_str() : "";
}

// The text is copied before the object is created, so an exception of the copy must be caught here, too.
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
