// What the core asks of the disk and does to it besides copying, on paths in Windows form. All of it goes
// through platform::current_system(); nothing throws for a bad path.
#pragma once

#include <vector>

#include "platform/system.h"

namespace vs::project_resave {

// True for a file and for a folder.
bool path_exists(const wide_string& path);

// A file or folder that belongs to an element. The status is that of the moment when it was looked for, none
// if that was not done.
struct found_file {
    found_file(const wide_string& place, platform::entry_status found = {}) : path(place), status(found) {}

    wide_string path;
    platform::entry_status status;
};

// Appends what stands there; false if nothing does.
bool append_if_exists(const wide_string& path, std::vector<found_file>& out);

// Creates what is missing of a folder path. True if all of it stands as folders afterwards; levels made
// before a failure stay. The drive, or server and share, must be there.
bool create_folders(const wide_string& path);

// `path` if nothing stands there, else the first of stem_1, stem_2, ... at which nothing does. The last dot
// begins an extension in the name of a folder too.
wide_string unique_path(const wide_string& path);

// Deletes a file, or a folder with all it holds; a link goes without what it leads to. Goes on past what
// cannot be deleted. True if nothing of it is left over.
bool remove_tree(const wide_string& path);

} // namespace vs::project_resave
