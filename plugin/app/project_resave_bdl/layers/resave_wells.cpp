#include "layers/resave_wells.h"

#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "layers/layer_files.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"

namespace vs::project_resave {

bool Tvs_resave_well::write_structure() {
    context->log.write_indented(with_path(*context, well_caption(), source_path()));
    return true;
}

void Tvs_resave_well::collect_source_files(std::vector<found_file>& out) {
    out.clear();
    const wide_string source = source_path();
    append_if_exists(source, out);
    // The folder counts with all its content.
    append_if_exists(path_replace_extension(source, u""), out);
}

wide_string Tvs_resave_well::default_folder() { return load_string(text::well_folder); }

bool Tvs_resave_well::copy_files(const wide_string& source, const wide_string& target) {
    return copy_file_and_folder(source, target, *context);
}

vs_entity* Tvs_resave_well_lr::entity() { return layer ? vs_lr_safe_upcast(layer) : nullptr; }

bool Tvs_resave_well_lr::do_save() {
    // A unit that was built before the user chose a folder for each scene can still get here.
    if (context->options.structure_variant != folder_per_scene) return Tvs_resave_well::do_save();
    skip_progress();
    return true;
}

void Tvs_resave_well_lr::collect_common_directory(common_directory& common) {
    if (context->options.structure_variant != folder_per_scene)
        Tvs_resave_well::collect_common_directory(common);
}

wide_string Tvs_resave_well_lr::source_path() { return host_string(&vs_lr_get_wfilename, layer); }

void Tvs_resave_well_lr::set_new_path(const wide_string& path) { vs_lr_set_wfilename(layer, path.c_str()); }

wide_string Tvs_resave_well_lr::well_caption() { return host_string(&vs_lr_get_wcaption, layer); }

void Tvs_resave_well_lr2d::after_file_saved() { save_layer_file_2d(layer, *context); }

void Tvs_resave_well_lr3d::after_file_saved() { save_layer_file_3d(layer, *context); }

} // namespace vs::project_resave
