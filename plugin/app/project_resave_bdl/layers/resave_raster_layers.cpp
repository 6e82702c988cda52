#include "layers/resave_raster_layers.h"

#include "core/copying.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

wide_string Tvs_resave_rtr_lr::default_folder() { return load_string(text::raster_folder); }

bool Tvs_resave_rtr_lr::copy_files(const wide_string& source, const wide_string& target) {
    return copy_raster_family(source, target, *context);
}

void Tvs_resave_rtr_lr2d::after_file_saved() { save_layer_file_2d(layer, *context); }

void Tvs_resave_tld_lr::collect_source_files(std::vector<found_file>& out) {
    const wide_string reference = host_string(&vs_lr_get_wfilename, layer);
    out = {reference};
    append_if_exists(projection_file_name(reference), out);
}

wide_string Tvs_resave_tld_lr::default_folder() { return load_string(text::tile_folder); }

bool Tvs_resave_tld_lr::copy_files(const wide_string& source, const wide_string& target) {
    return copy_file_and_projection(source, target, *context);
}

void Tvs_resave_tld_lr2d::after_file_saved() { save_layer_file_2d(layer, *context); }

} // namespace vs::project_resave
