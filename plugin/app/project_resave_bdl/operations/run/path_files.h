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

// Puts into `result` the absolute path with each component as the listing of its folder spells it; the drive
// stays as it is, and so does a component that no entry matches. False, with an empty result, for a path that
// is empty, relative or on a share, and for one that does not exist.
bool true_case_path(const wide_string& path, wide_string& result);

// Creates what is missing of a folder path. Succeeds if all levels exist as folders afterwards; levels made
// before a failure stay. The drive, or server and share, must exist.
platform::outcome create_folders(const wide_string& path);

// `path` if nothing stands there, else the first of stem_1, stem_2, ... at which nothing does. The last dot
// begins an extension in the name of a folder too.
wide_string unique_path(const wide_string& path);

// Deletes a file, or a folder with all it holds; a link goes without what it leads to. Goes on past what
// cannot be deleted. Fails, with the first reason, if anything of it is left over.
platform::outcome remove_tree(const wide_string& path);

} // namespace vs::project_resave
