// Checks and copies files by the paths that the host uses, such as C:\data\a.txt, and converts these paths to
// the form that the bundle stores.
#pragma once

#include "platform/wide_string.h"

namespace sample {

using vs::project_resave::wide_string;

// True if a file or a folder has this path.
bool file_exists(const wide_string& path);

// Copies a file. Returns false and leaves no new file if the source cannot be read or the target exists.
bool copy_file(const wide_string& source, const wide_string& target);

// Returns the folder of a path, with its trailing separator; empty if the path is only a name.
wide_string folder_of(const wide_string& path);

// Returns the path relative to the folder of another file, `..\notes\a.txt`, so that both can be moved
// together; the unchanged path if the two are on different drives or servers.
wide_string relative_path(const wide_string& path, const wide_string& other);

// Returns the absolute path for one that relative_path returned for the same file, which can have moved.
wide_string whole_path(const wide_string& stored, const wide_string& other);

} // namespace sample
