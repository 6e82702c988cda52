// Lines of elements in the text of a project's structure, each at the current depth of the log.
#pragma once

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct run_state;

// Returns the caption; if the options want paths, with the separator of the text and the path after it.
wide_string with_path(run_state& run, wide_string caption, const wide_string& path);
// Writes a line for each field of a DBF table; those of joined tables are marked as such. Nothing for a null
// table and one that does not open.
void write_attr_fields(run_state& run, vs_attr_data* table);
// Writes a line for each property of the TOS file; nothing if it does not open.
void write_tos_properties(run_state& run, const wide_string& path);

} // namespace vs::project_resave
