// The folder, for each drive, in which all files of a set lie.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

struct drive_paths {
    // What the folders of the files counted begin with, as pieces, of which the first is the drive; pieces
    // are compared with their letter case.
    std::vector<wide_string> shared;
    size_t counted = 0; // files
    wide_string common; // "C:\data\maps", without a separator at the end
};

class common_directory {
public:
    // By drive as it is spelled in the paths, so "c:" and "C:" are two.
    std::unordered_map<wide_string, drive_paths> drives;
    // False while `common` of the drives is behind `shared`.
    bool computed = false;

    // Counts the folder of a file. A path without a drive takes no part.
    void add_path(const wide_string& path);
    // Puts together `common` of every drive. One drive whose paths have nothing in common, not even the drive
    // ("C:name"), leaves the drives not reached by then without one.
    void compute();
    void clear() { *this = {}; }
};

} // namespace vs::project_resave
