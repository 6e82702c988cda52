// What a run asks of the disk besides copying and removing, and the names of companions, on paths in Windows
// form. All of it goes
// through platform::current_system(); nothing throws for a bad path.
#pragma once

#include <vector>

#include "platform/system.h"

namespace vs::project_resave {

// True for a file and for a folder.
bool path_exists(const wide_string& path);
// True also for what is neither, such as a pipe or a link that leads nowhere: a file cannot be created there,
// or would come to lie elsewhere.
bool is_name_taken(const wide_string& path);

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
// before a failure stay; each that this call made is appended to `made`. The drive, or server and share, must
// exist.
platform::outcome create_folders(const wide_string& path, std::vector<wide_string>* made = nullptr);

// `path` if nothing stands there, else the first of stem_1, stem_2, ... at which nothing does. The last dot
// begins an extension in the name of a folder too.
wide_string unique_path(const wide_string& path);

// Names beside C:\a\b.tif: b_tif.pj4, b.cpg, b.tif.ovr, world file b.tfw and its sibling b.tfr, b.shx, b.dbf.
//
// The extension of a grid, which is a file in a folder of its own name with all that is in it.
inline constexpr wide_view own_folder_extension = u".pgrid";
// True for such a file in such a folder.
bool has_own_folder(const wide_string& path);

// Path of the projection file that belongs to a main file, whether it exists or not.
wide_string projection_file_name(const wide_string& path);
// Dot, first and third letter of the main file's extension; a "w" or an "r" completes it. Throws
// std::out_of_range for an extension of fewer than two letters.
wide_string world_extension(const wide_string& path);
// The names of what belongs to the file: what a copy of it can take along, and what a reader of its format
// would take for a part of it. Whether they exist or not.
std::vector<wide_string> companion_files(const wide_string& path);

} // namespace vs::project_resave
