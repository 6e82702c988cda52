#include "core/tos_property_lines.h"

#include "framework/border/host_owned.h"
#include "framework/border/string_adapter.h"
#include "host/vsk_file_tos4.h"
#include "operations/project_context.h"

namespace vs::project_resave {

void write_tos_properties(project_context& context, const wide_string& path) {
    const host_owned<vs_tos4_file, &vs_tos4_file_close> file(vs_tos4_file_open_w(path.c_str(), 1));
    const uint32_t count = vs_tos4_get_prop_count(file.get()); // 0 where the file did not open
    for (uint32_t index = 0; index < count; ++index)
        context.log.write_indented(host_string(&vs_tos4_get_prop_caption_w, file.get(), index));
}

} // namespace vs::project_resave
