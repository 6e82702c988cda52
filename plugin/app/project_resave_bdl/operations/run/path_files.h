// What a run needs from the disk besides copying and removing, and the names of companion files, for paths in
// Windows form. Everything goes through platform::current_system(); no function throws for a bad path. Main
// thread only.
#pragma once

#include <vector>

#include "platform/system.h"

namespace vs::project_resave {

// True for an existing file or folder.
bool path_exists(const wide_string& path);
// True also for an entry that is neither, such as a pipe or a broken link: a file cannot be created there, or
// would be created somewhere else.
bool is_name_taken(const wide_string& path);

// A file or folder that belongs to an element, with its status when it was looked up; `none` if it was not.
struct found_file {
    found_file(const wide_string& place, platform::entry_status found = {}) : path(place), status(found) {}

    wide_string path;
    platform::entry_status status;
};

// Appends what exists at the path; returns false if nothing does.
bool append_if_exists(const wide_string& path, std::vector<found_file>& out);

// Sets `result` to the absolute path with each component in the spelling that the listing of its folder has.
// The drive is unchanged, and so is a component without an entry. Returns false, with an empty result, for a
// path that is empty, relative, on a network share or does not exist.
bool true_case_path(const wide_string& path, wide_string& result);

// Creates the missing levels of a folder path. Succeeds if all levels are folders afterwards. Levels created
// before a failure stay; each level that this call created is appended to `made`. The drive, or server and
// share, must exist.
platform::outcome create_folders(const wide_string& path, std::vector<wide_string>* made = nullptr);

// Returns `path` if nothing exists there, else the first free one of stem_1, stem_2, ... The last dot begins
// an extension in the name of a folder, too.
wide_string unique_path(const wide_string& path);

// Names next to C:\a\b.tif: b_tif.pj4, b.cpg, b.tif.ovr, world file b.tfw and its sibling b.tfr, b.shx,
// b.dbf.
//
// The extension of a grid, which is a file in a folder with the same name; the whole folder belongs to it.
inline constexpr wide_view own_folder_extension = u".pgrid";
// True for a grid in a folder with its name.
bool has_own_folder(const wide_string& path);

// Returns the path of the projection file that belongs to a main file; it need not exist.
wide_string projection_file_name(const wide_string& path);
// Returns a dot and the first and third letter of the main file's extension; a "w" or an "r" completes it.
// Throws std::out_of_range for an extension of fewer than two letters.
wide_string world_extension(const wide_string& path);
// Returns the paths of the files that belong to the file: those that a copy of it can take along, and those
// that a reader of its format would take for a part of it. They need not exist.
std::vector<wide_string> companion_files(const wide_string& path);

} // namespace vs::project_resave
