#include "core/deferred_joins.h"

#include "core/copying.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "logs/log_file.h"
#include "operations/run/path_files.h"
#include "operations/run/path_placement.h"
#include "operations/run/run_report.h"

namespace vs::project_resave {

namespace {

constexpr int32_t table_folder_text = 402;
constexpr int32_t join_file_text = 521;

} // namespace

void deferred_joins::take_off(vs_attr_data* attr_data) {
    if (!attr_data || !vs_attr_data_is_joined(attr_data)) return;
    const int32_t count = vs_attr_data_get_join_count(attr_data);
    if (count == 0) return;
    for (int32_t i = 0; i < count; ++i) {
        pending.push_back({attr_data, vs_attr_data_get_join_base_field(attr_data, i),
                           host_string(vs_attr_data_get_join_other_source, attr_data, i),
                           vs_attr_data_get_join_other_field(attr_data, i)});
    }
    vs_attr_data_unjoin(attr_data);
}

void deferred_joins::note_kept(vs_attr_data* attr_data, const wide_string& owner) {
    if (!attr_data || !vs_attr_data_is_joined(attr_data)) return;
    const int32_t count = vs_attr_data_get_join_count(attr_data);
    for (int32_t i = 0; i < count; ++i)
        report->kept_joins.push_back({owner, host_string(vs_attr_data_get_join_other_source, attr_data, i)});
}

void deferred_joins::run() {
    placement->set_type_folder(load_string(table_folder_text));
    for (const pending_join& join : pending) rejoin(join);
    placement->set_type_folder(u"files");
    pending.clear();
}

void deferred_joins::rejoin(const pending_join& join) {
    if (!path_exists(join.other_source)) {
        record_lost_source(join.other_source, load_string(join_file_text), *log, *report);
        return;
    }
    wide_string path = placement->lookup_placed(join.other_source);
    if (path.empty()) {
        path = placement->new_path(join.other_source);
        if (path.empty()) {
            log->new_name_failed(join.other_source);
            return;
        }
        copy_table(join.other_source, path, *placement, *log, *report);
    }
    const host_owned<vs_attr_data, &vs_attr_data_destroy> other(vs_attr_data_create());
    vs_attr_data_set_wfilename(other.get(), path.c_str());
    vs_attr_data_join(join.attr_data, other.get(), join.base_field, join.other_field);
}

} // namespace vs::project_resave
