#include "containers/resave_layouts.h"

#include <string_view>

#include "containers/resave_layout_parts.h"
#include "containers/resave_legend_plus.h"
#include "framework/border/encoding.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/interfaces/layout_legend_layer.h"
#include "host/vsk_layout.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_scn_2d.h"
#include "layers/resave_raster_layers.h"
#include "operations/project_context.h"

namespace vs::project_resave {

void Tvs_resave_scns_layout::build() {
    const uint32_t count = vs_scns_2d_get_size(layouts);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_scn_layout>(vs_scns_2d_get(layouts, index), *context));
}

void Tvs_resave_scns_layout::before_children() { context->progress.set_caption(354); }
vs_entities* Tvs_resave_scns_layout::container() {
    return layouts ? vs_scns_2d_safe_upcast(layouts) : nullptr;
}
wide_string Tvs_resave_scns_layout::heading() { return load_string(626); }
void Tvs_resave_scns_layout::remove_child(uint32_t index) { vs_scns_2d_del(layouts, index); }

void Tvs_resave_scn_layout::build() {
    const uint32_t count = vs_scn_2d_get_layer_count(layout);
    children.resize(size_t{count} + 1);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_unit(vs_scn_2d_get_layer_ptr(layout, index)));
    if (vs_lr* page = vs_scn_layout_get_page_lr2d(layout))
        place(count, std::make_unique<Tvs_resave_layout_page>(page, *context));
}

// What has no file and shows nothing of the project has no unit, and neither has a kind that is not known
// here.
std::unique_ptr<Tvs_resave_unit> Tvs_resave_scn_layout::make_unit(vs_lr* layer) {
    if (vs_entity* entity = vs_lr_safe_upcast(layer))
        if (auto claimed = context->entity_factory_.make(*context, entity)) return claimed;
    const std::string_view type = narrow_or_empty(vs_lr2d_get_lr_type(layer));
    if (type == "layout_scene_frame") return std::make_unique<Tvs_resave_scene_frame>(layer, *context);
    if (type == "layout_image") return std::make_unique<Tvs_resave_rtr_lr>(layer, *context);
    if (type == "vs_layout_legend_layer_meta_id") return make_legend(layer);
    return nullptr;
}

std::unique_ptr<Tvs_resave_unit> Tvs_resave_scn_layout::make_legend(vs_lr* layer) {
    const interface_pointer* plugin = vs_layout_lr2d_get_plugin_interface(layer);
    if (!plugin) return nullptr;
    const auto legend = cast_to<layout_legend_layer_impl>(identity_pointer{*plugin});
    vs_scn_2d* shown = call<&layout_legend_layer_impl::scene>(legend);
    return shown ? std::make_unique<Tvs_resave_legend_plus>(shown, heading(), *context) : nullptr;
}

void Tvs_resave_scn_layout::on_missing_child(uint32_t index) {
    context->log.write_indented(host_string(&vs_lr2d_get_wcaption, vs_scn_2d_get_layer_ptr(layout, index)));
}

vs_entities* Tvs_resave_scn_layout::container() { return layout ? vs_scn_2d_safe_upcast(layout) : nullptr; }
wide_string Tvs_resave_scn_layout::heading() { return host_string(&vs_scn_2d_get_wcaption, layout); }
bool Tvs_resave_scn_layout::has_structure_content() { return context->options.write_layout_layers; }
void Tvs_resave_scn_layout::remove_child(uint32_t index) { vs_scn_2d_del_lr2d(layout, index); }

} // namespace vs::project_resave
