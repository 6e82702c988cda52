// Saves the layouts of a project. A layout owns few files itself: frames show scenes of the project, so the
// references of frames must be complete, and legends have their own units.

#include "containers/resave_layouts.h"

#include <string_view>

#include "containers/resave_legend_plus.h"
#include "core/layer_group_writer.h"
#include "framework/border/encoding.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/interfaces/layout_legend_layer.h"
#include "host/vsk_basic.h"
#include "host/vsk_entity.h"
#include "host/vsk_layout.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_scn_2d.h"
#include "layers/resave_raster_layers.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

void Tvs_resave_scns_layout::build() {
    const uint32_t count = vs_scns_2d_get_size(layouts_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scn_layout>(vs_scns_2d_get(layouts_, index), *context));
}

void Tvs_resave_scns_layout::before_children() { context->progress.set_caption(text::saving_layouts); }
vs_entities* Tvs_resave_scns_layout::container() {
    return layouts_ ? vs_scns_2d_safe_upcast(layouts_) : nullptr;
}
wide_string Tvs_resave_scns_layout::heading() { return load_string(text::layouts_heading); }
void Tvs_resave_scns_layout::remove_child(uint32_t index) { vs_scns_2d_del(layouts_, index); }

void Tvs_resave_scn_layout::build() {
    const uint32_t count = vs_scn_2d_get_layer_count(layout_);
    children.resize(size_t{count} + 1);
    for (uint32_t index = 0; index < count; ++index) {
        // Files of layers without a unit are protected, too.
        vs_lr* const layer = vs_scn_2d_get_layer_ptr(layout_, index);
        context->guard.add(host_string(&vs_lr_get_wfilename, layer));
        place(index, make_unit(layer));
    }
    vs_lr* const page = vs_scn_layout_get_page_lr2d(layout_);
    context->guard.add(host_string(&vs_lr_get_wfilename, page));
    if (page) place(count, std::make_unique<Tvs_resave_layout_page>(page, *context));
}

// A layer without a file that shows nothing of the project has no unit, nor has a layer of an unknown kind.
std::unique_ptr<Tvs_resave_unit> Tvs_resave_scn_layout::make_unit(vs_lr* layer) {
    if (auto claimed = make_claimed_unit(*context, vs_lr_safe_upcast(layer))) return claimed;
    const std::string_view type = narrow_or_empty(vs_lr2d_get_lr_type(layer));
    if (type == "layout_scene_frame") return std::make_unique<Tvs_resave_scene_frame>(layer, *context);
    if (type == "layout_image") return std::make_unique<Tvs_resave_rtr_lr>(layer, *context);
    if (type == "vs_layout_legend_layer_meta_id") return make_legend(layer);
    return nullptr;
}

std::unique_ptr<Tvs_resave_unit> Tvs_resave_scn_layout::make_legend(vs_lr* layer) {
    // A plain legend has no plug-in scene, and so no files.
    const interface_pointer* plugin = vs_layout_lr2d_get_plugin_interface(layer);
    if (!plugin) return nullptr;
    const auto legend = cast_to<layout_legend_layer_impl>(identity_pointer{*plugin});
    vs_scn_2d* shown = call<&layout_legend_layer_impl::scene>(legend);
    return shown ? std::make_unique<Tvs_resave_legend_plus>(shown, heading(), *context) : nullptr;
}

void Tvs_resave_scn_layout::on_missing_child(uint32_t index) {
    context->log.write_indented(host_string(&vs_lr2d_get_wcaption, vs_scn_2d_get_layer_ptr(layout_, index)));
}

vs_entities* Tvs_resave_scn_layout::container() { return layout_ ? vs_scn_2d_safe_upcast(layout_) : nullptr; }
wide_string Tvs_resave_scn_layout::heading() { return host_string(&vs_scn_2d_get_wcaption, layout_); }
bool Tvs_resave_scn_layout::has_structure_content() { return context->options.write_layout_layers; }
void Tvs_resave_scn_layout::remove_child(uint32_t index) { vs_scn_2d_del_lr2d(layout_, index); }

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
    // The layers first, then the scene itself: the user is asked only if one of them is left out.
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
    // Kept as users know it: the reference changes although the page's file is not copied.
    vs_lr_set_wfilename(layer, context->placement.folder_for(path).c_str());
    return true;
}

} // namespace vs::project_resave
