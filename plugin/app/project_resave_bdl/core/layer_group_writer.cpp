// Writes the layers of a scene into the structure text, in the order of the scene's groups.

#include "core/layer_group_writer.h"

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "host/vsk_lr.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

wide_string uuid_to_text(const vs_uuid* uuid) {
    return uuid && vs_uuid_has_value(uuid) ? host_string(&vs_uuid_to_string, uuid) : wide_string();
}

vs_uuid* entity_uuid(vs_entity* entity) {
    vs_uuid* uuid = entity ? vs_entity_get_uuid(entity) : nullptr;
    if (uuid && vs_uuid_has_value(uuid)) return uuid;
    show_error(text::selection_error);
    return nullptr;
}

bool entity_has_uuid(vs_entity* entity) { return entity_uuid(entity) != nullptr; }

wide_string entity_uuid_text(vs_entity* entity) { return uuid_to_text(entity_uuid(entity)); }

element_name element_name_of(vs_entity* entity, const wide_string& list) {
    if (!entity) return {{}, {}, list};
    return {uuid_to_text(vs_entity_get_uuid(entity)), host_string(&vs_entity_get_wcaption, entity), list};
}

layer_group_writer::layer_group_writer(run_state& run,
                                       const std::vector<std::unique_ptr<Tvs_resave_unit>>& units)
    : context_(run) {
    // Looked up once for each unit, since a scene can have thousands of layers.
    for (const auto& unit : units)
        if (unit) unit_of_.try_emplace(uuid_to_text(unit->uuid()), unit.get());
}

void layer_group_writer::write(vs_lr_group* group) {
    const uint32_t count = vs_lr_group_get_count_child(group);
    for (uint32_t place = 0; place < count; ++place) {
        if (context_.progress.is_stopped()) return;
        // The text has the order that the user sees.
        const uint32_t index = vs_options_get_invert_layers() ? count - 1 - place : place;
        vs_lr_group* node = vs_lr_group_get_child_by_index(group, index);
        if (vs_lr_group_is_group(node))
            write_subgroup(node);
        else
            write_layer(vs_lr_group_get_lr_ptr(node));
    }
}

void layer_group_writer::write_layer(vs_lr* layer) {
    if (!layer) return;
    const auto row = unit_of_.find(uuid_to_text(vs_lr_get_uuid(layer)));
    if (row != unit_of_.end() && row->second->selection_state() == vs_state_true)
        row->second->write_structure();
}

void layer_group_writer::write_subgroup(vs_lr_group* group) {
    // A group whose layers are all left out has no line, and neither have its subgroups.
    if (!has_selected_layer(group)) return;
    context_.log.write_indented(host_string(&vs_lr_group_get_wcaption, group));
    context_.log.indent();
    write(group);
    context_.log.unindent();
}

// Decides by the selection alone: a layer that nothing resaves counts too. The result does not depend on the
// order of display.
bool layer_group_writer::has_selected_layer(vs_lr_group* group) {
    if (const auto known = holds_selected_.find(group); known != holds_selected_.end()) return known->second;
    bool found = false;
    const uint32_t count = vs_lr_group_get_count_child(group);
    for (uint32_t index = 0; index < count && !found; ++index) {
        vs_lr_group* node = vs_lr_group_get_child_by_index(group, index);
        if (vs_lr_group_is_group(node))
            found = has_selected_layer(node);
        else if (vs_lr* layer = vs_lr_group_get_lr_ptr(node))
            found = context_.selection.is_selected(uuid_to_text(vs_lr_get_uuid(layer)));
    }
    return holds_selected_[group] = found;
}

} // namespace vs::project_resave
