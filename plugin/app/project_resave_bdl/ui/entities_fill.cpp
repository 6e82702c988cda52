// Fills the selection from the loaded project, in the order in which the host shows its elements.

#include "ui/entities_fill.h"

#include "core/layer_group_writer.h"
#include "framework/border/encoding.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "services/service_answers.h"

namespace vs::project_resave::detail {

namespace {

void add_layer(vs_lr* layer, const wide_string& caption, select_tree_node& node) {
    node.add_leaf(entity_uuid_text(vs_lr_safe_upcast(layer)), caption,
                  vs_lr_is_valid(layer) != vs_state_false, vs_lr_get_visible(layer),
                  std::string(narrow_or_empty(vs_lr_get_lr_type(layer))));
}

// In the order in which the user sees the layers: the host can show them in reverse.
void fill_group(vs_lr_group* group, select_tree_node& node) {
    const uint32_t count = vs_lr_group_get_count_child(group);
    for (uint32_t place = 0; place < count; ++place) {
        const uint32_t index = vs_options_get_invert_layers() ? count - 1 - place : place;
        vs_lr_group* child = vs_lr_group_get_child_by_index(group, index);
        if (vs_lr_group_is_group(child))
            fill_group(child, node.add_node(host_string(&vs_lr_group_get_wcaption, child)));
        else if (vs_lr* layer = vs_lr_group_get_lr_ptr(child))
            add_layer(layer, host_string(&vs_entity_get_wcaption, vs_lr_safe_upcast(layer)), node);
    }
}

// Kept as users know it: without groups the order is never reversed.
void fill_layers(vs_scn* scene, select_tree_node& node) {
    const uint32_t count = vs_scn_get_count(scene);
    for (uint32_t index = 0; index < count; ++index) {
        vs_lr* layer = vs_scn_get_layer(scene, index);
        add_layer(layer, host_string(&vs_lr_get_wcaption, layer), node);
    }
}

bool has_invalid_layer(vs_scn* scene) {
    const uint32_t count = vs_scn_get_count(scene);
    for (uint32_t index = 0; index < count; ++index)
        if (vs_lr_is_valid(vs_scn_get_layer(scene, index)) == vs_state_false) return true;
    return false;
}

vs_entity* entity_of(vs_scn* scene) { return vs_entities_safe_upcast(vs_scn_safe_upcast(scene)); }

void fill_scene(vs_scn* scene, select_2part_model& model) {
    const wide_string uuid = entity_uuid_text(entity_of(scene));
    if (uuid.empty()) return;
    select_tree_node& layers = model.add_bottom(uuid, host_string(&vs_scn_get_wcaption, scene));
    if (vs_lr_group* group = vs_scn_get_lr_group_ptr(scene))
        fill_group(group, layers);
    else
        fill_layers(scene, layers);
    // A scene with an invalid layer is shown as invalid, too.
    if (select_tree_leaf* row = model.root(top_part)->find_leaf(uuid))
        row->set_valid(!has_invalid_layer(scene));
}

void fill_scenes(select_2part_model& model, vs_entities* container, const std::vector<vs_scn*>& scenes) {
    fill_flat(container, *model.root(top_part), *model.changed_event(top_part));
    if (scenes.empty()) return;
    for (vs_scn* scene : scenes) fill_scene(scene, model);
    model.set_current(uuid_to_text(vs_entity_get_uuid(entity_of(scenes.front()))));
}

void fill_service(const resave_service& service, select_tree_node& root) {
    if (!call<&resave_service_impl::shows_in_selection>(service)) return;
    const uint32_t count = count_from<&resave_service_impl::item_count>(service).value_or(0);
    if (count == 0) return;
    select_tree_node* const parent =
        call<&resave_service_impl::has_own_heading>(service)
            ? &root.add_node(text_from<&resave_service_impl::tree_caption>(service))
            : &root;
    for (uint32_t index = 0; index < count; ++index)
        parent->add_leaf(uuid_to_text(call<&resave_service_impl::item_uuid>(service, index)),
                         text_from<&resave_service_impl::item_caption>(service, index), true, true, {});
}

} // namespace

void fill_scenes_2d(vs_prj* project, select_2part_model& model) {
    vs_scns_2d* container = vs_prj_get_scns_2d_ptr(project);
    std::vector<vs_scn*> scenes(vs_scns_2d_get_size(container));
    for (uint32_t index = 0; index < scenes.size(); ++index) scenes[index] = vs_scns_2d_get(container, index);
    fill_scenes(model, vs_scns_2d_safe_upcast(container), scenes);
}

void fill_scenes_3d(vs_prj* project, select_2part_model& model) {
    vs_scns_3d* container = vs_prj_get_scns_3d_ptr(project);
    std::vector<vs_scn*> scenes(vs_scns_3d_get_size(container));
    for (uint32_t index = 0; index < scenes.size(); ++index) scenes[index] = vs_scns_3d_get(container, index);
    fill_scenes(model, vs_scns_3d_safe_upcast(container), scenes);
}

void fill_flat(vs_entities* collection, select_tree_node& root, event& changed) {
    const bool was_empty = root.is_empty();
    root.clear_children();
    // Before the new rows: an error box for one of them lets the host redraw, and the old rows are destroyed.
    if (!was_empty) changed.fire();
    const uint32_t count = vs_entities_get_count(collection);
    for (uint32_t index = 0; index < count; ++index) {
        vs_entity* entity = vs_entities_get_entity(collection, index);
        root.add_leaf(entity_uuid_text(entity), host_string(&vs_entity_get_wcaption, entity),
                      vs_entity_is_valid(entity) != vs_state_false, true, {});
    }
}

void fill_services(const resave_services* services, select_tree_node& root) {
    root.clear_children();
    if (!services) return;
    for (const ref<resave_service_impl>& service : *services)
        if (service) fill_service(service.get(), root);
}

} // namespace vs::project_resave::detail
