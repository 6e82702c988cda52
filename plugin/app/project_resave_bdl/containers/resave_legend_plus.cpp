// Saves the content of legends. Their layers are ordinary ones in another folder, but only a few types are
// known here.
#include "containers/resave_legend_plus.h"

#include <string_view>

#include "core/layer_group_writer.h"
#include "framework/border/encoding.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_scn_2d.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

wide_string legend_folder_for(const wide_string& first, const wide_string&) {
    // Kept as users know it: the caption is joined only if it is empty, so it never becomes part of the
    // folder.
    wide_string folder = load_string(text::legend_plus_folder);
    if (first.empty()) folder = path_join(folder, first);
    return folder;
}

bool Tvs_resave_shp_2d_legend_plus::write_dbf_columns() { return context->options.write_legend_columns; }

void Tvs_resave_legend_plus::build() {
    const uint32_t count = vs_scn_2d_get_layer_count(scene_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, make_unit(vs_scn_2d_get_layer_ptr(scene_, index)));
}

std::unique_ptr<Tvs_resave_unit> Tvs_resave_legend_plus::make_unit(vs_lr* layer) {
    const auto make = [&]<class Unit>(std::in_place_type_t<Unit>) {
        return std::make_unique<Unit>(layer, layout_caption_, heading(), *context);
    };
    const char* const text = vs_lr2d_get_lr_type(layer);
    const std::string_view type = narrow_or_empty(text);
    if (type == "shp_pnt_lr2d" || type == "shp_pln_lr2d" || type == "shp_pgn_lr2d")
        return make(std::in_place_type<Tvs_resave_shp_2d_legend_plus>);
    if (type == "rtr_lr2d") return make(std::in_place_type<Tvs_resave_rtr_legend_plus>);
    if (type == "tos_grid_lr1d" || type == "tos_grid_lr2d" || type == "tos_slice_lr2d" ||
        type == "tos_2crd_lr2d")
        return make(std::in_place_type<Tvs_resave_tos_legend_plus>);
    if (type == "tld_lr2d") return make(std::in_place_type<Tvs_resave_tld_legend_plus>);
    // A layer of another type has no unit here; its file is protected, and it is reported as not resaved.
    const wide_string file = host_string(&vs_lr_get_wfilename, layer);
    context->guard.add(file);
    context->report.add_unprocessed_type(element_name_of(vs_lr_safe_upcast(layer), heading()), text, file);
    context->log.add_unprocessed_type(text);
    return nullptr;
}

vs_entities* Tvs_resave_legend_plus::container() { return scene_ ? vs_scn_2d_safe_upcast(scene_) : nullptr; }
wide_string Tvs_resave_legend_plus::heading() { return host_string(&vs_scn_2d_get_wcaption, scene_); }
bool Tvs_resave_legend_plus::has_structure_content() { return context->options.write_legend_content; }

} // namespace vs::project_resave
