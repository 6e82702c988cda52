#include "containers/resave_wells_data.h"

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"
#include "host/vsk_scn_2d.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

vs_entity* Tvs_resave_well_data::entity() {
    vs_entities* scene = sheet_ ? vs_scn_2d_safe_upcast(sheet_) : nullptr;
    return scene ? vs_entities_safe_upcast(scene) : nullptr;
}

wide_string Tvs_resave_well_data::source_path() { return host_string(&vs_scn_2d_get_source, sheet_); }
void Tvs_resave_well_data::set_new_path(const wide_string& path) {
    vs_scn_2d_set_source(sheet_, path.c_str());
}
wide_string Tvs_resave_well_data::well_caption() { return host_string(&vs_scn_2d_get_wcaption, sheet_); }

void Tvs_resave_wells_data::build() {
    if (!sheets_) return;
    const uint32_t count = vs_scns_2d_get_size(sheets_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index) {
        vs_entity* entity = vs_entities_safe_upcast(vs_scn_safe_upcast(vs_scns_2d_get(sheets_, index)));
        std::unique_ptr<Tvs_resave_unit> unit = make_claimed_unit(*context, entity);
        if (!unit) unit = std::make_unique<Tvs_resave_well_data>(vs_scns_2d_get(sheets_, index), *context);
        place(index, std::move(unit));
    }
}

void Tvs_resave_wells_data::before_children() { context->progress.set_caption(text::saving_wells); }
vs_entities* Tvs_resave_wells_data::container() {
    return sheets_ ? vs_scns_2d_safe_upcast(sheets_) : nullptr;
}
wide_string Tvs_resave_wells_data::heading() { return load_string(text::wells_heading); }
void Tvs_resave_wells_data::remove_child(uint32_t index) { vs_scns_2d_del(sheets_, index); }

} // namespace vs::project_resave
