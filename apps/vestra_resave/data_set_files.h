// What a data set needs besides its main file: members, the files that its format lists, the files that it
// names itself.
#pragma once

#include <filesystem>
#include <map>
#include <vector>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

struct data_set_files {
    struct needed {
        wide_string path;      // of a file that may be missing
        bool is_whole = false; // the data set names it by its whole path
    };
    std::vector<needed> files; // the main file is not among them
    bool is_empty = false;     // a file without a byte, or a folder without a file
    wide_string unread;        // why the main file could not be read, though it exists; else empty
};

// Looks at the data set whose main file, or folder, exists at `path`. A host must be running.
data_set_files files_of_data_set(const wide_string& path);

// Returns the files without which the one at `path` cannot be read, from its name alone; they may be missing.
std::vector<wide_string> partners_of(const wide_string& path);

// The files that a virtual data set names, whether they exist or not; none for any other file. It is known by
// its first bytes, whatever its extension.
std::vector<data_set_files::needed> virtual_sources(const wide_string& path);

// Whether paths below a folder stay in it when links are followed.
class folder_walls {
public:
    explicit folder_walls(const wide_string& folder);

    // True if the path, or a link on its way, leads out of the folder. False for what cannot be reached.
    bool leads_out(const wide_string& path) const;
    // True if a link on its way names its target by a whole path, or climbs out of the folder: it would lead
    // elsewhere if the folder were moved. For a path below the folder.
    bool is_bound(const wide_string& path) const;

private:
    std::filesystem::path folder_, home_; // as given; without links, empty if it cannot be reached
    mutable std::map<wide_string, std::filesystem::path> canonical_; // of folders that were asked for
};

} // namespace vestra::command
