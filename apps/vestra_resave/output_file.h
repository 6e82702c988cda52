// The text file that a command is to write.
#pragma once

#include "apps/vestra_resave/session.h"

namespace vestra::command {

// True if both paths lead, or would lead, to one file.
bool is_same_file(const wide_string& one, const wide_string& other);

// Creates the file, or empties one that exists: never the loaded project or one of its files. Tells what is
// wrong otherwise, and answers how the command ends: `done` if it may go on.
int create_text_file(const wide_string& path, vs::project_resave::project_context& context);

// Names each of the paths at which a file of the loaded project stands, under whatever name or link, on the
// error output; true if there is one. Files of the project are itself, its data sets, what its elements refer
// to and the items of services, and all that is in a folder among them.
bool would_replace_project_file(const std::vector<wide_string>& paths,
                                vs::project_resave::project_context& context);

} // namespace vestra::command
