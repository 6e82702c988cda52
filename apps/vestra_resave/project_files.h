// Keeps a command from writing over the files of the project that it reads.
#pragma once

#include <vector>

#include "apps/vestra_resave/session.h"

namespace vestra::command {

// Names each of the paths at which a file of the loaded project stands, under whatever name or link, on the
// error output; true if there is one. Files of the project are itself, its data sets, what its elements refer
// to and the items of services, and all that is in a folder among them.
bool would_replace_project_file(const std::vector<wide_string>& paths,
                                vs::project_resave::project_context& context);

} // namespace vestra::command
