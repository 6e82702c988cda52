// The line of an element in the text of a project's structure.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

class project_context;

// The caption; if the options want paths, with the separator of the text and the path behind it.
wide_string with_path(project_context& context, wide_string caption, const wide_string& path);

} // namespace vs::project_resave
