// Opens data sets through the host, and keeps the joins of tables that a run has removed.

#include "core/data_source.h"

#include <algorithm>

#include "core/copying.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/border/visitors.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_basic.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

namespace {

ref<stat_source_impl> open_source(const wide_string& source, vs_data* data) {
    interface_pointer opened;
    vs_datasource_open(&opened, source.c_str(), data);
    // A second ref holds the object itself, so that it is closed even if it does not have the expected
    // interface.
    const ref<interface_impl> object(identity_pointer{opened});
    return ref<stat_source_impl>(cast_to<stat_source_impl>(object.get()));
}

} // namespace

bool data_source_files(const wide_string& path, std::vector<wide_string>& out) {
    out.clear();
    if (path.empty()) return false;
    const ref<stat_source_impl> source = open_source(path, nullptr);
    if (!source) return false;
    stdwstring_list_visitor visitor(out);
    call<&stat_source_impl::files>(source.get(), visitor);
    return true;
}

bool append_existing_files(const wide_string& path, std::vector<found_file>& out) {
    std::vector<wide_string> named;
    if (!data_source_files(path, named)) return false;
    for (const wide_string& file : named) append_if_exists(file, out);
    return true;
}

bool vector_datasource::open(const wide_string& source, vs_data* data) {
    source_.reset();
    source_ = open_source(source, data);
    return static_cast<bool>(source_);
}

int32_t vector_datasource::find_field(const wide_string& name) const {
    return source_ ? call<&stat_source_impl::find_field>(source_.get(), name.c_str()) : -1;
}

bool vector_datasource::first() const { return call<&stat_source_impl::first>(source_.get()); }

bool vector_datasource::next() const { return call<&stat_source_impl::next>(source_.get()); }

wide_string vector_datasource::text(int32_t field) const {
    wide_string text;
    stdwstring_visitor visitor(text);
    call<&stat_source_impl::field_text>(source_.get(), field, visitor);
    return text;
}

namespace {

int32_t join_count(vs_attr_data* attr_data) {
    if (!attr_data || !vs_attr_data_is_joined(attr_data)) return 0;
    return vs_attr_data_get_join_count(attr_data);
}

wide_string joined_table(vs_attr_data* attr_data, int32_t index) {
    return host_string(vs_attr_data_get_join_other_source, attr_data, index);
}

void put_back(const pending_join& join, run_state& run) {
    const current_element owner(run.report, join.owner);
    if (!path_exists(join.other_source))
        return record_lost_source(run, join.other_source, load_string(text::join_file));
    // The table may have been copied by its own unit meanwhile.
    wide_string path = run.placement.lookup_placed(join.other_source);
    if (path.empty()) {
        path = run.placement.new_path(join.other_source);
        if (path.empty()) return record_no_place(run, join.other_source, join.other_source);
        // Kept as users know it: tables that are joined to this one are not copied.
        copy_table(join.other_source, path, run);
    }
    const host_owned<vs_attr_data, &vs_attr_data_destroy> other(vs_attr_data_create());
    vs_attr_data_set_wfilename(other.get(), path.c_str());
    vs_attr_data_join(join.attr_data, other.get(), join.base_field, join.other_field);
}

} // namespace

std::vector<wide_string> joined_tables(vs_attr_data* attr_data) {
    const int32_t count = join_count(attr_data);
    std::vector<wide_string> tables;
    tables.reserve(static_cast<size_t>(std::max(count, 0)));
    for (int32_t i = 0; i < count; ++i) tables.push_back(joined_table(attr_data, i));
    return tables;
}

void take_joins_off(vs_attr_data* attr_data, run_state& run) {
    const int32_t count = join_count(attr_data);
    if (count == 0) return;
    for (int32_t i = 0; i < count; ++i)
        run.joins.pending.push_back({attr_data, vs_attr_data_get_join_base_field(attr_data, i),
                                     joined_table(attr_data, i),
                                     vs_attr_data_get_join_other_field(attr_data, i), run.report.current()});
    vs_attr_data_unjoin(attr_data);
}

bool lacks_joins(vs_attr_data* attr_data, const run_state& run) {
    return attr_data && !run.joins.pending.empty() && run.joins.pending.back().attr_data == attr_data;
}

void note_kept_joins(vs_attr_data* attr_data, run_state& run) {
    const int32_t count = join_count(attr_data);
    for (int32_t i = 0; i < count; ++i) run.report.add(fact_kind::join_kept, joined_table(attr_data, i));
}

void put_joins_back(run_state& run) {
    const type_folder_scope tables(run.placement, load_string(text::dbf_folder));
    for (const pending_join& join : run.joins.pending) put_back(join, run);
    // After the joins, because these files describe them.
    for (const auto& [key, file] : run.joins.unfinished)
        if (!file.write()) run.report.add(fact_kind::not_written, file.source, file.path);
    run.joins.clear();
}

} // namespace vs::project_resave
