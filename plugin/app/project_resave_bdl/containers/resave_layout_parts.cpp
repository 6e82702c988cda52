#include "containers/resave_layout_parts.h"

#include "core/entity_uuid.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "host/vsk_layout.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_scn_2d.h"
#include "operations/project_context.h"

namespace vs::project_resave {

vs_entity* Tvs_resave_layout_part::entity() { return layer ? vs_lr_safe_upcast(layer) : nullptr; }

void Tvs_resave_layout_part::set_selected(bool on) {
    context->selection.set_selected(entity_uuid_text(entity()), on);
}

uint32_t Tvs_resave_layout_part::selection_state() {
    return vs_bool_to_3state(context->selection.is_selected(entity_uuid_text(entity())));
}

bool Tvs_resave_scene_frame::write_structure() {
    context->log.write_indented(host_string(&vs_lr2d_get_wcaption, layer));
    return true;
}

bool Tvs_resave_scene_frame::correct_selection() {
    vs_scn* scene = vs_layout_scene_frame_lr2d_get_scene(layer);
    if (!scene) return true;
    vs_entities* container = vs_scn_safe_upcast(scene);
    bool changed = false;
    const uint32_t count = vs_entities_get_count(container);
    for (uint32_t index = 0; index < count; ++index)
        if (select_shown(vs_entities_get_entity(container, index))) changed = true;
    if (select_shown(vs_entities_safe_upcast(container))) changed = true;
    return !changed;
}

bool Tvs_resave_scene_frame::select_shown(vs_entity* shown) {
    const wide_string uuid = entity_uuid_text(shown);
    if (uuid.empty() || context->selection.is_selected(uuid) || !context->options.ask_add_referenced())
        return false;
    context->selection.set_selected(uuid, true);
    return true;
}

bool Tvs_resave_layout_page::do_save() {
    const wide_string path = host_string(&vs_lr_get_wfilename, layer);
    vs_lr_set_wfilename(layer, context->placement.folder_for(path).c_str());
    return true;
}

} // namespace vs::project_resave
