// The tables of layer types. Types are compared exactly; an unknown type is reported, not guessed.

#include "layers/layer_factory.h"

#include <span>
#include <string_view>

#include "core/layer_group_writer.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_basic.h"
#include "host/vsk_lr.h"
#include "host/vsk_lr2d.h"
#include "host/vsk_lr3d.h"
#include "layers/resave_layer.h"
#include "layers/resave_map_layers.h"
#include "layers/resave_raster_layers.h"
#include "layers/resave_shape_layers.h"
#include "layers/resave_tos_layers.h"
#include "layers/resave_wells.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

using unit_pointer = std::unique_ptr<Tvs_resave_unit>;

template <class Unit>
unit_pointer make(run_state& context, vs_lr* layer) {
    return std::make_unique<Unit>(layer, context);
}

template <class Unit>
unit_pointer make_well(run_state& context, vs_lr* layer) {
    // With a folder for each scene, wells are not resaved.
    if (context.options.structure_variant == folder_per_scene) return nullptr;
    return make<Unit>(context, layer);
}

// A reference that contains a uuid is a link to a scene of the project; any other is the path of a scene
// file.
unit_pointer make_map_3d(run_state& context, vs_lr* layer) {
    const wide_string text = trim(host_string(&vs_lr_get_wfilename, layer), u"*");
    const host_owned<vs_uuid, &vs_uuid_destroy> uuid(vs_uuid_create());
    const bool is_link = (vs_uuid_from_string(uuid.get(), text.c_str()) & 0xFF) != 0;
    return is_link ? make<Tvs_resave_map_link_lr>(context, layer) : make<Tvs_resave_map_lr3d>(context, layer);
}

struct layer_row {
    std::string_view type;
    unit_pointer (*make)(run_state& context, vs_lr* layer);
};

constexpr layer_row rows_2d[] = {
    {"shp_pnt_lr2d", &make<Tvs_resave_shp_lr2d>},
    {"shp_pln_lr2d", &make<Tvs_resave_shp_lr2d>},
    {"shp_pgn_lr2d", &make<Tvs_resave_shp_lr2d>},
    {"rtr_lr2d", &make<Tvs_resave_rtr_lr2d>},
    {"tos_grid_lr1d", &make<Tvs_resave_tos_lr2d>},
    {"tos_grid_lr2d", &make<Tvs_resave_tos_lr2d>},
    {"tos_slice_lr2d", &make<Tvs_resave_tos_lr2d>},
    {"tos_2crd_lr2d", &make<Tvs_resave_tos_lr2d>},
    {"tld_lr2d", &make<Tvs_resave_tld_lr2d>},
    {"vs_scene_layer_meta_id", &make<Tvs_resave_map_lr>}, // writes no layer file
    {"plugin_lr_2d_well_hole_2d_3", &make_well<Tvs_resave_well_lr2d>},
    {"plugin_lr_2d_well_profil_2", &make_well<Tvs_resave_well_lr2d>},
    {"wms_lr2d", &make<Tvs_resave_wms_lr>},
    {"grid_lr2d", &make<Tvs_resave_grid>},
    {"vector_lr2d", &make<Tvs_resave_vector_lr2d>},
    {"vector_point_lr2d", &make<Tvs_resave_vector_lr2d>},
    {"vector_multipoint_lr2d", &make<Tvs_resave_vector_lr2d>},
    {"vector_polyline_lr2d", &make<Tvs_resave_vector_lr2d>},
    {"vector_polygon_lr2d", &make<Tvs_resave_vector_lr2d>},
    {"prf_lines_lr2d", &make<Tvs_resave_prf_lines_lr2d>},
    {"prf_compound_lr2d", &make<Tvs_resave_prf_compound_lr2d>},
};

constexpr layer_row rows_3d[] = {
    {"shp_pnt_lr3d", &make<Tvs_resave_shp_lr3d>},
    {"shp_pln_lr3d", &make<Tvs_resave_shp_lr3d>},
    {"shp_pgn_lr3d", &make<Tvs_resave_shp_lr3d>},
    {"map_lr3d", &make_map_3d},
    {"tos_grid_lr3d", &make<Tvs_resave_tos_lr3d>},
    {"tos_surf_lr3d", &make<Tvs_resave_tos_lr3d>},
    {"tos_3crd_lr3d", &make<Tvs_resave_tos_lr3d>},
    {"plugin_lr_3d_wells_2", &make_well<Tvs_resave_well_lr3d>},
    {"plugin_lr_3d_correlation", &make_well<Tvs_resave_well_lr3d>},
    {"segy_lr3d", &make<Tvs_resave_grid>},
};

unit_pointer make_layer_unit(run_state& context, vs_lr* layer, const wide_string& list, const char* type,
                             std::span<const layer_row> rows) {
    vs_entity* const entity = vs_lr_safe_upcast(layer);
    const wide_string file = host_string(&vs_lr_get_wfilename, layer);
    context.guard.add(file);
    // A bundle may support a layer type better than the tables do.
    if (unit_pointer unit = make_claimed_unit(context, entity)) return unit;
    if (!type) type = "";
    for (const layer_row& row : rows)
        if (row.type == type) return row.make(context, layer);
    // The layer keeps its reference, so the new project depends on the old data. The final message lists each
    // type once, the log once for each layer.
    context.report.add_unprocessed_type(element_name_of(entity, list), type, file);
    context.log.add_unprocessed_type(type);
    return nullptr;
}

} // namespace

unit_pointer make_layer_unit_2d(run_state& context, vs_lr* layer, const wide_string& list) {
    return make_layer_unit(context, layer, list, vs_lr2d_get_lr_type(layer), rows_2d);
}

unit_pointer make_layer_unit_3d(run_state& context, vs_lr* layer, const wide_string& list) {
    return make_layer_unit(context, layer, list, vs_lr3d_get_lr_type(layer), rows_3d);
}

} // namespace vs::project_resave
