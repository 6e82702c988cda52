#include "core/joined_tables.h"

#include "core/copying.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

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
    wide_string path = run.placement.lookup_placed(join.other_source);
    if (path.empty()) {
        path = run.placement.new_path(join.other_source);
        if (path.empty()) return run.log.new_name_failed(join.other_source);
        copy_table(join.other_source, path, run);
    }
    const host_owned<vs_attr_data, &vs_attr_data_destroy> other(vs_attr_data_create());
    vs_attr_data_set_wfilename(other.get(), path.c_str());
    vs_attr_data_join(join.attr_data, other.get(), join.base_field, join.other_field);
}

} // namespace

void take_joins_off(vs_attr_data* attr_data, run_state& run) {
    const int32_t count = join_count(attr_data);
    if (count == 0) return;
    for (int32_t i = 0; i < count; ++i)
        run.joins.pending.push_back({attr_data, vs_attr_data_get_join_base_field(attr_data, i),
                                     joined_table(attr_data, i),
                                     vs_attr_data_get_join_other_field(attr_data, i), run.report.current()});
    vs_attr_data_unjoin(attr_data);
}

void note_kept_joins(vs_attr_data* attr_data, run_state& run) {
    const int32_t count = join_count(attr_data);
    for (int32_t i = 0; i < count; ++i) run.report.add(fact_kind::join_kept, joined_table(attr_data, i));
}

void put_joins_back(run_state& run) {
    const type_folder_scope tables(run.placement, load_string(text::dbf_folder));
    for (const pending_join& join : run.joins.pending) put_back(join, run);
    run.joins.pending.clear();
}

} // namespace vs::project_resave
