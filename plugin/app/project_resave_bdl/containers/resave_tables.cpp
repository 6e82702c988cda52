// Saves the tables of a project and the sheets of wells. DBF tables are saved last, since all other units may
// refer to them.

#include "containers/resave_tables.h"

#include "core/copying.h"
#include "core/resave_unit.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_entity.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_tos_data.h"
#include "operations/run/placed_files.h"
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
        // Sheets are elements, too, so a bundle can claim one.
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

vs_entity* Tvs_resave_attr::entity() {
    vs_table_data* data = table_ ? vs_attr_data_safe_upcast(table_) : nullptr;
    return data ? vs_table_data_safe_upcast(data) : nullptr;
}

wide_string Tvs_resave_attr::source_path() { return host_string(&vs_attr_data_get_wfilename, table_); }
void Tvs_resave_attr::set_new_path(const wide_string& path) {
    vs_attr_data_set_wfilename(table_, path.c_str());
}
wide_string Tvs_resave_attr::default_folder() { return load_string(text::dbf_folder); }

bool Tvs_resave_attr::copy_files(const wide_string& source, const wide_string& target) {
    return copy_table_and_joins(table_, source, target, *context);
}

void Tvs_resave_attr::collect_common_directory(common_directory& common) {
    common.add_path(source_path());
    // The joined tables count as well, although they are copied only when the joins are restored.
    const int32_t joins = vs_attr_data_get_join_count(table_);
    // Before the run removes the joins from the table.
    for (int32_t index = 0; index < joins; ++index)
        common.add_path(host_string(&vs_attr_data_get_join_other_source, table_, index));
}

bool Tvs_resave_attr::write_structure() {
    skip_progress();
    context->log.write_indented(
        with_path(*context, host_string(&vs_attr_data_get_wcaption, table_), source_path()));
    context->log.indent();
    // Kept as users know it: the columns appear regardless of the options.
    write_attr_fields(*context, table_);
    context->log.unindent();
    return true;
}

vs_entity* Tvs_resave_tos_table::entity() {
    vs_table_data* data = table_ ? vs_tos_data_safe_upcast(table_) : nullptr;
    return data ? vs_table_data_safe_upcast(data) : nullptr;
}

wide_string Tvs_resave_tos_table::source_path() { return host_string(&vs_tos_data_get_wfilename, table_); }
void Tvs_resave_tos_table::set_new_path(const wide_string& path) {
    vs_tos_data_set_wfilename(table_, path.c_str());
}
wide_string Tvs_resave_tos_table::default_folder() { return load_string(text::tos_folder); }

bool Tvs_resave_tos_table::copy_files(const wide_string& source, const wide_string& target) {
    return copy_tos_files(source, target, *context);
}

bool Tvs_resave_tos_table::write_structure() {
    skip_progress();
    context->log.write_indented(
        with_path(*context, host_string(&vs_tos_data_get_wcaption, table_), source_path()));
    if (!context->options.write_table_columns) return true;
    context->log.indent();
    write_tos_properties(*context, source_path());
    context->log.unindent();
    return true;
}

void Tvs_resave_attrs_data::build() {
    const uint32_t count = vs_attrs_data_get_size(tables_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_attr>(vs_attrs_data_get(tables_, index), *context));
}

void Tvs_resave_attrs_data::before_children() { context->progress.set_caption(text::saving_dbf_tables); }
vs_entities* Tvs_resave_attrs_data::container() {
    return tables_ ? vs_attrs_data_safe_upcast(tables_) : nullptr;
}
wide_string Tvs_resave_attrs_data::heading() { return load_string(text::dbf_tables_heading); }
bool Tvs_resave_attrs_data::has_structure_content() { return context->options.write_table_names; }
void Tvs_resave_attrs_data::remove_child(uint32_t index) { vs_attrs_data_del(tables_, index); }

void Tvs_resave_toss_data::build() {
    const uint32_t count = vs_toss_data_get_size(tables_);
    children.resize(count);
    for (uint32_t index = 0; index < count; ++index)
        place(index, std::make_unique<Tvs_resave_tos_table>(vs_toss_data_get(tables_, index), *context));
}

void Tvs_resave_toss_data::before_children() { context->progress.set_caption(text::saving_tos_tables); }
vs_entities* Tvs_resave_toss_data::container() {
    return tables_ ? vs_toss_data_safe_upcast(tables_) : nullptr;
}
wide_string Tvs_resave_toss_data::heading() { return load_string(text::tos_tables_heading); }
bool Tvs_resave_toss_data::has_structure_content() { return context->options.write_table_names; }
void Tvs_resave_toss_data::remove_child(uint32_t index) { vs_toss_data_del(tables_, index); }

} // namespace vs::project_resave
