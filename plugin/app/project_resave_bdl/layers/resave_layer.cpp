#include "layers/resave_layer.h"

#include "core/structure_lines.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

bool Tvs_resave_layer::write_structure() {
    skip_progress();
    context->log.write_indented(with_path(*context, host_string(&vs_lr_get_wcaption, layer),
                                          host_string(&vs_lr_get_wfilename, layer)));
    return true;
}

vs_entity* Tvs_resave_layer::entity() { return layer ? vs_lr_safe_upcast(layer) : nullptr; }

wide_string Tvs_resave_layer::source_path() { return host_string(&vs_lr_get_wfilename, layer); }

void Tvs_resave_layer::set_new_path(const wide_string& path) { vs_lr_set_wfilename(layer, path.c_str()); }

wide_string Tvs_resave_layer::default_folder() { return load_string(text::others_folder); }

bool Tvs_resave_layer::copy_files(const wide_string&, const wide_string&) {
    context->log.write(text::layer_type_not_saved);
    context->log.write(vs_lr_get_lr_type(layer));
    context->log.write(text::end_of_block);
    return false;
}

} // namespace vs::project_resave
