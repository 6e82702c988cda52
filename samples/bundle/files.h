// Files by the paths that the host uses, C:\data\a.txt, and these paths as the bundle stores them.
#pragma once

#include "platform/wide_string.h"

namespace sample {

using vs::project_resave::wide_string;

// True if a file or a folder has this path.
bool file_exists(const wide_string& path);

// Copies a file. Returns false, with nothing new on the disk, if the source cannot be read or anything exists
// at the target.
bool copy_file(const wide_string& source, const wide_string& target);

// Returns the folder of a path, with its trailing separator; empty if the path is a name alone.
wide_string folder_of(const wide_string& path);

// Returns the path relative to the folder of another file, `..\notes\a.txt`, so that both can be moved
// together; the path as it is if the two are on different drives or servers.
wide_string relative_path(const wide_string& path, const wide_string& other);

// Returns the whole path of one that relative_path returned for the same file, wherever that is now.
wide_string whole_path(const wide_string& stored, const wide_string& other);

} // namespace sample
