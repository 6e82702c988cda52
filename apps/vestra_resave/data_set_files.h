// The files that a data set needs besides its main file: members, files listed by its format, and files that
// it refers to. Everything is read through the current disk, except by formats that a library reads, and no
// function changes anything.
#pragma once

#include <filesystem>
#include <map>
#include <vector>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// The files of a data set, as far as they are known.
struct data_set_files {
    struct needed {
        wide_string path; // of a file that may be missing
        // True if the data set refers to it by an absolute path, so that the reference breaks if both are
        // moved.
        bool is_whole = false;
    };
    std::vector<needed> files; // without the main file
    // True for a file of 0 bytes and a folder without files; the rest is not examined then.
    bool is_empty = false;
    wide_string unread; // why the existing main file could not be read; otherwise empty
};

// Examines the data set whose main file or folder exists at `path`. A host must be running, because it knows
// the formats. Opens the data set and, unless it is a folder or a valid shape file, reads its first bytes; a
// virtual one is read completely. Each file is listed once, without the main file.
data_set_files files_of_data_set(const wide_string& path);

// Returns the files without which the one at `path` cannot be read, by its name alone; they may be missing.
std::vector<wide_string> partners_of(const wide_string& path);

// Returns the files that a virtual data set refers to, existing or not; empty for any other file and for one
// that cannot be read. A virtual data set is recognised by its first bytes, whatever its extension. Sources
// in memory, in archives and on servers are left out. Needs no host.
std::vector<data_set_files::needed> virtual_sources(const wide_string& path);

// Checks whether paths inside a folder stay there when links are followed. Works on the real disk: paths that
// exist only on another disk, such as one in an archive, never point outside.
class folder_walls {
public:
    // `folder` is a drive path; links in it are resolved once.
    explicit folder_walls(const wide_string& folder);

    // True if the path, or a link on its way, points outside the folder. False if it cannot be reached.
    bool leads_out(const wide_string& path) const;
    // For a path in the folder: true if a link on its way has an absolute target or climbs out of the folder,
    // so that it would break if the folder were moved.
    bool is_bound(const wide_string& path) const;

private:
    std::filesystem::path folder_, home_; // as given; without links, empty if unreachable
    // The resolved form of folders already checked, by drive path; empty if a folder cannot be resolved.
    mutable std::map<wide_string, std::filesystem::path> canonical_;
};

} // namespace vestra::command
