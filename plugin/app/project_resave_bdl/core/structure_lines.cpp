#include "core/structure_lines.h"

#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_file_tos4.h"
#include "operations/run/run_state.h"

namespace vs::project_resave {

wide_string with_path(run_state& run, wide_string caption, const wide_string& path) {
    const resave_options& options = run.options;
    if (!options.write_file_paths) return caption;
    caption += options.indent_unit.empty() ? options.separator_fallback : options.indent_unit;
    return caption + path;
}

void write_attr_fields(run_state& run, vs_attr_data* table) {
    const host_owned<vs_attr_files, &vs_attr_files_close> files(
        vs_attr_files_open(table, vs_open_for_reading, 0, 0, 0));
    if (!files) return;
    const int32_t count = vs_attr_files_get_np(files.get());
    for (int32_t index = 0; index < count; ++index) {
        const wide_string name = host_text(vs_attr_files_get_field_name(files.get(), index));
        const bool joined = vs_attr_files_get_field_is_joined(files.get(), index);
        run.log.write_indented(joined ? load_string(text::join_field) + name : name);
    }
}

void write_tos_properties(run_state& run, const wide_string& path) {
    const host_owned<vs_tos4_file, &vs_tos4_file_close> file(
        vs_tos4_file_open_w(path.c_str(), vs_open_for_reading));
    const uint32_t count = vs_tos4_get_prop_count(file.get()); // 0 where the file did not open
    for (uint32_t index = 0; index < count; ++index)
        run.log.write_indented(host_string(&vs_tos4_get_prop_caption_w, file.get(), index));
}

} // namespace vs::project_resave
