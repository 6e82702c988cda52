// Selected elements may refer to others that are not: the step by which those come into the selection.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

class project_context;

// Selects the unit of this uuid text with all below it, unless it is selected already or there is none. The
// user is asked once in a run and may refuse. True if the selection was changed.
bool select_referenced(project_context& context, const wide_string& uuid);

} // namespace vs::project_resave
