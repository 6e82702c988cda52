// The fields of a DBF table in the text of a project's structure.
#pragma once

#include "host/types.h"

namespace vs::project_resave {

class project_context;

// A line for each field at the log's present depth, those of joined tables marked as such. Nothing for a null
// table and one that does not open.
void write_attr_fields(project_context& context, vs_attr_data* table);

} // namespace vs::project_resave
