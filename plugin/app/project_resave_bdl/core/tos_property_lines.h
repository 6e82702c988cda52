// The properties of a TOS file in the text of a project's structure.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

class project_context;

// A line for each property at the log's present depth; nothing for a file that does not open.
void write_tos_properties(project_context& context, const wide_string& path);

} // namespace vs::project_resave
