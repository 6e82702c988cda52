#include "core/attr_field_lines.h"

#include "framework/border/encoding.h"
#include "framework/border/host_owned.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "operations/project_context.h"

namespace vs::project_resave {

namespace {

constexpr int32_t join_field_text = 623;

} // namespace

void write_attr_fields(project_context& context, vs_attr_data* table) {
    const host_owned<vs_attr_files, &vs_attr_files_close> files(vs_attr_files_open(table, 1, 0, 0, 0));
    if (!files) return;
    const int32_t count = vs_attr_files_get_np(files.get());
    for (int32_t index = 0; index < count; ++index) {
        const wide_string name = host_text(vs_attr_files_get_field_name(files.get(), index));
        const bool joined = vs_attr_files_get_field_is_joined(files.get(), index);
        context.log.write_indented(joined ? load_string(join_field_text) + name : name);
    }
}

} // namespace vs::project_resave
