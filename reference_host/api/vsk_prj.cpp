#include "host/vsk_prj.h"

#include "reference_host/api/calls.h"
#include "reference_host/shell/settings.h"

using namespace vestra::api;
using vestra::shell::settings;

vs_prj* vs_prj_create() { return create<vs_prj>(); }

void vs_prj_destroy(vs_prj* project) {
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
