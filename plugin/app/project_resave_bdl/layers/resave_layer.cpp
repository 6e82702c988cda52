#include "layers/resave_layer.h"

#include "core/structure_lines.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_lr.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

namespace {

constexpr int32_t others_folder_text = 410;
constexpr uint32_t end_of_block_text = 601;
constexpr uint32_t layer_type_not_saved_text = 617;

} // namespace

bool Tvs_resave_layer::write_structure() {
    skip_progress();
    context->log.write_indented(with_path(*context, host_string(&vs_lr_get_wcaption, layer),
                                          host_string(&vs_lr_get_wfilename, layer)));
    return true;
}

vs_entity* Tvs_resave_layer::entity() { return layer ? vs_lr_safe_upcast(layer) : nullptr; }

wide_string Tvs_resave_layer::source_path() { return host_string(&vs_lr_get_wfilename, layer); }

void Tvs_resave_layer::set_new_path(const wide_string& path) { vs_lr_set_wfilename(layer, path.c_str()); }

wide_string Tvs_resave_layer::default_folder() { return load_string(others_folder_text); }

bool Tvs_resave_layer::copy_files(const wide_string&, const wide_string&) {
    context->log.write(layer_type_not_saved_text);
    context->log.write(vs_lr_get_lr_type(layer));
    context->log.write(end_of_block_text);
    return false;
}

} // namespace vs::project_resave
