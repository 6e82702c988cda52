// Saves rasters, tiles and grids: layers whose data is a picture or a grid with a few companions.

#include "layers/resave_raster_layers.h"

#include "core/copying.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

constexpr char16_t cutline_mark = u'*';

} // namespace

wide_string Tvs_resave_grid::default_folder() {
    const wide_string extension = path_extension(host_string(&vs_lr_get_wfilename, layer));
    // Kept as users know it: only these spellings count, so ".SGY" goes to the folder for grids.
    const bool seismic = extension == u".sgy" || extension == u".segy" || extension == u".sec";
    return load_string(seismic ? text::seismic_folder : text::grid_folder);
}

bool Tvs_resave_grid::copy_files(const wide_string& source, const wide_string& target) {
    switch (platform::current_system().kind_of(source)) {
    case platform::entry_kind::file:
        return copy_data_set(source, target, *context);
    case platform::entry_kind::folder:
        return copy_data_folder(source, target, *context);
    case platform::entry_kind::none: // it existed a moment ago
        record_copy_failure(*context, {source, target, platform::failure::missing});
        break;
    }
    return false;
}

wide_string Tvs_resave_grid_cutline::source_path() {
    const wide_string reference = Tvs_resave_tos_lr2d::source_path();
    return reference.starts_with(cutline_mark) ? reference.substr(1) : reference;
}

void Tvs_resave_grid_cutline::set_new_path(const wide_string& path) {
    // Kept as users know it: after a save the mark is always there, even if the reference had none.
    Tvs_resave_tos_lr2d::set_new_path(path.starts_with(cutline_mark) ? path : cutline_mark + path);
}

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
