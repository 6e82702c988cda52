// Checks and creation of the output file of a command.
#pragma once

#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/words.h"

namespace vestra::command {

// True if both paths are, or would be, the same file.
bool is_same_file(const wide_string& one, const wide_string& other);
// True if the folders are the same as well, because data is searched next to the path that a project is
// opened by.
bool is_same_project(const wide_string& one, const wide_string& other);

// True if the files are in one folder, which may be reached through a link.
bool share_folder(const wide_string& one, const wide_string& other);
// True if `path` has the same folder and name, up to a dot, as the file, and would look like a part of its
// data set.
bool is_named_as(const wide_string& path, const wide_string& file);
inline constexpr sentence passes_for_data = "it would look like a file of the data set next to it";

// Returns why the path `typed` cannot be written: it is a folder, a device, a pipe or a dangling link, or it
// is on a share and the operating system has no shares.
std::optional<refusal> refuse_output(const std::string& typed);

// Returns why an existing file at the path must not be overwritten: it is the loaded project, one of its
// files, a source of one of its virtual data sets, or a file that begins with the stem of a data file next to
// it.
std::optional<refusal> refuse_project_file(const wide_string& path,
                                           vs::project_resave::project_context& context);

// Returns why no file must be made at the path: it would look like a part of a data set of the loaded
// project.
std::optional<refusal> refuse_data_name(const wide_string& path,
                                        vs::project_resave::project_context& context);

// Creates the file, or truncates an existing one unless `refuse_project_file` forbids it. Returns an error if
// the command must end.
std::optional<refusal> create_text_file(const wide_string& path,
                                        vs::project_resave::project_context& context);

// Returns an error that lists each path at which a file of the loaded project exists, under any name or link.
// The files of the project are the project file, its data sets, the files of its elements and of service
// items, and everything inside folders among them.
std::optional<refusal> protect_project_files(const std::vector<wide_string>& paths,
                                             vs::project_resave::project_context& context);

} // namespace vestra::command
