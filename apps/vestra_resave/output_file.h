// The text file that a command is to write.
#pragma once

#include "apps/vestra_resave/session.h"

namespace vestra::command {

// True if both paths lead, or would lead, to one file.
bool is_same_file(const wide_string& one, const wide_string& other);
// True if the folders are the same, too: data are found next to the name that a project is opened by.
bool is_same_project(const wide_string& one, const wide_string& other);

// Returns why nothing is written at the path that was typed as `typed`: it is a folder, a device, a pipe, a
// link that leads nowhere, or on a share where the operating system knows none.
std::optional<refusal> refuse_output(const std::string& typed);

// Returns why nothing may be written over what is at the path: it is the loaded project or one of its files,
// a source of a virtual data set of it, or a file that begins with the stem of a data file next to it.
std::optional<refusal> refuse_project_file(const wide_string& path,
                                           vs::project_resave::project_context& context);

// Creates the file, or empties one that exists, unless `refuse_project_file` says why not. Returns why the
// command ends here instead.
std::optional<refusal> create_text_file(const wide_string& path,
                                        vs::project_resave::project_context& context);

// Returns a refusal that names each of the paths at which a file of the loaded project exists, under whatever
// name or link. Files of the project are itself, its data sets, what its elements refer to and the items of
// services, and all that is in a folder among them.
std::optional<refusal> protect_project_files(const std::vector<wide_string>& paths,
                                             vs::project_resave::project_context& context);

} // namespace vestra::command
