// Reads the element tree of the loaded project through the host's C functions.
#include "apps/vestra_resave/elements.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "core/layer_group_writer.h"
#include "framework/border/encoding.h"
#include "framework/border/string_adapter.h"
#include "host/interfaces/layout_legend_layer.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_entity.h"
#include "host/vsk_layout.h"
#include "host/vsk_lr.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_scn_3d.h"
#include "host/vsk_tos_data.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

element described(std::string kind, vs_entity* entity, bool selectable = true) {
    element shown;
    shown.entity = entity;
    shown.kind = std::move(kind);
    shown.type = host_text(vs_entity_get_meta_id(entity));
    shown.caption = host_string(&vs_entity_get_wcaption, entity);
    shown.uuid = uuid_to_text(vs_entity_get_uuid(entity));
    // The selection is kept by uuid, so an element without one cannot be left out.
    shown.selectable = selectable && !shown.uuid.empty();
    return shown;
}

void add_joins(element& shown, vs_attr_data* table) {
    const int32_t joins = vs_attr_data_get_join_count(table);
    for (int32_t index = 0; index < joins; ++index) {
        element joined;
        joined.kind = "joined table";
        refer_to(joined, host_string(&vs_attr_data_get_join_other_source, table, index));
        joined.caption = path_file_name(joined.file);
        shown.children.push_back(std::move(joined));
    }
}

element scene_element(std::string kind, vs_scn* scene);

element layer_element(vs_lr* layer) {
    element shown = described("layer", vs_lr_safe_upcast(layer));
    shown.type = host_text(vs_lr_get_lr_type(layer));
    refer_to(shown, host_string(&vs_lr_get_wfilename, layer));
    add_joins(shown, vs_attr_data_safe_downcast(vs_lr_get_data_ptr(layer)));
    // The legend of a layout is a separate scene.
    if (const interface_pointer* plugin = vs_layout_lr2d_get_plugin_interface(layer)) {
        const auto legend = cast_to<layout_legend_layer_impl>(identity_pointer{*plugin});
        if (vs_scn_2d* content = call<&layout_legend_layer_impl::scene>(legend))
            shown.children.push_back(scene_element("legend", content));
    }
    return shown;
}

void add_nodes(element& parent, vs_lr_group* group, std::unordered_set<vs_lr*>& grouped) {
    const uint32_t count = vs_lr_group_get_count_child(group);
    for (uint32_t index = 0; index < count; ++index) {
        vs_lr_group* node = vs_lr_group_get_child_by_index(group, index);
        if (vs_lr_group_is_group(node)) {
            element& shown = parent.children.emplace_back();
            shown.kind = "group";
            shown.caption = host_string(&vs_lr_group_get_wcaption, node);
            add_nodes(shown, node, grouped);
        } else if (vs_lr* layer = vs_lr_group_get_lr_ptr(node)) {
            // The groups only refer to layers of the scene.
            grouped.insert(layer);
            parent.children.push_back(layer_element(layer));
        }
    }
}

// Lists layers in the order of the groups, then those in no group.
element scene_element(std::string kind, vs_scn* scene) {
    element shown = described(std::move(kind), vs_entities_safe_upcast(vs_scn_safe_upcast(scene)));
    std::unordered_set<vs_lr*> grouped;
    if (vs_lr_group* groups = vs_scn_get_lr_group_ptr(scene)) add_nodes(shown, groups, grouped);
    const uint32_t count = vs_scn_get_count(scene);
    for (uint32_t index = 0; index < count; ++index)
        if (vs_lr* layer = vs_scn_get_layer(scene, index); !grouped.contains(layer))
            shown.children.push_back(layer_element(layer));
    return shown;
}

element flat_scenes(const std::string& kind, vs_scns_2d* scenes) {
    element shown = described("collection", vs_entities_safe_upcast(vs_scns_2d_safe_upcast(scenes)), false);
    const uint32_t count = vs_scns_2d_get_size(scenes);
    for (uint32_t index = 0; index < count; ++index) {
        vs_scn_2d* scene = vs_scns_2d_get(scenes, index);
        element& member = shown.children.emplace_back(scene_element(kind, scene));
        refer_to(member, host_string(&vs_scn_2d_get_source, scene));
        // The page is not among the layers of its layout.
        if (vs_lr* page = vs_scn_layout_get_page_lr2d(scene)) {
            member.children.push_back(layer_element(page));
            member.children.back().kind = "page";
            member.children.back().selectable = false; // it belongs to its layout
        }
    }
    return shown;
}

element solid_scenes(vs_scns_3d* scenes) {
    element shown = described("collection", vs_entities_safe_upcast(vs_scns_3d_safe_upcast(scenes)), false);
    const uint32_t count = vs_scns_3d_get_size(scenes);
    for (uint32_t index = 0; index < count; ++index)
        shown.children.push_back(scene_element("scene", vs_scns_3d_get(scenes, index)));
    return shown;
}

element tables(vs_attrs_data* all) {
    element shown = described("collection", vs_entities_safe_upcast(vs_attrs_data_safe_upcast(all)), false);
    const uint32_t count = vs_attrs_data_get_size(all);
    for (uint32_t index = 0; index < count; ++index) {
        vs_attr_data* table = vs_attrs_data_get(all, index);
        element& member = shown.children.emplace_back(
            described("table", vs_table_data_safe_upcast(vs_attr_data_safe_upcast(table))));
        refer_to(member, host_string(&vs_attr_data_get_wfilename, table));
        add_joins(member, table);
    }
    return shown;
}

element tos_tables(vs_toss_data* all) {
    element shown = described("collection", vs_entities_safe_upcast(vs_toss_data_safe_upcast(all)), false);
    const uint32_t count = vs_toss_data_get_size(all);
    for (uint32_t index = 0; index < count; ++index) {
        vs_tos_data* table = vs_toss_data_get(all, index);
        element& member = shown.children.emplace_back(
            described("table", vs_table_data_safe_upcast(vs_tos_data_safe_upcast(table))));
        refer_to(member, host_string(&vs_tos_data_get_wfilename, table));
    }
    return shown;
}

// An element without a unit takes no part in a resave, so it cannot be left out. The exception is layers of
// types that nothing resaves: they can be left out of the report.
void keep_without_unit(std::vector<element>& elements, project_context& context) {
    for (element& each : elements) {
        if (each.kind != "layer" && !context.units.find(each.uuid)) each.selectable = false;
        keep_without_unit(each.children, context);
    }
}

} // namespace

void refer_to(element& shown, wide_string reference) {
    const std::optional<wide_string> path = path_in(reference);
    shown.file = std::move(reference);
    if (!path) return;
    const platform::entry_status status = platform::current_system().status_of(*path);
    shown.exists = status.kind != platform::entry_kind::none;
}

std::optional<wide_string> path_in(wide_view reference) {
    wide_string path(reference.starts_with(u'*') ? reference.substr(1) : reference);
    if (path_root(path).empty() && !(path.starts_with(u"\\") || path.starts_with(u"/"))) return std::nullopt;
    return path;
}

uint64_t bytes_of(const wide_string& path) {
    platform::system& system = platform::current_system();
    if (system.kind_of(path) != platform::entry_kind::folder) return system.file_size(path);
    uint64_t sum = 0;
    for (const platform::tree_entry& entry : platform::list_tree(system, path))
        if (!entry.is_folder) sum += system.file_size(entry.path);
    return sum;
}

std::vector<element> elements_of(project_context& context) {
    vs_prj* project = context.project_handle();
    std::vector<element> all;
    all.push_back(flat_scenes("scene", vs_prj_get_scns_2d_ptr(project)));
    all.push_back(solid_scenes(vs_prj_get_scns_3d_ptr(project)));
    all.push_back(tables(vs_prj_get_attrs_data_ptr(project)));
    all.push_back(tos_tables(vs_prj_get_toss_data_ptr(project)));
    all.push_back(flat_scenes("layout", vs_prj_get_layouts_data_ptr(project)));
    const uint32_t plugins = vs_prj_get_plugin_scns_2d_count(project);
    for (uint32_t index = 0; index < plugins; ++index)
        all.push_back(flat_scenes("sheet", vs_prj_get_plugin_scns_2d_ptr(project, index)));
    // Called before the items of services are added: they have no units, and each already has its own flag.
    keep_without_unit(all, context);
    std::ranges::move(kept_by_services(context), std::back_inserter(all));
    return all;
}

} // namespace vestra::command
