// The folder, for each drive, in which all files of a set lie.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

struct drive_paths {
    std::vector<std::vector<wide_string>>
        paths;          // the folder of each file, as its pieces; the first is the drive
    wide_string common; // "C:\data\maps", without a separator at the end
};

class common_directory {
public:
    // By drive as it is spelled in the paths, so "c:" and "C:" are two.
    std::unordered_map<wide_string, drive_paths> drives;
    // False while `common` of the drives is behind `paths`.
    bool computed = false;

    // Counts the folder of a file. A path without a drive takes no part.
    void add_path(const wide_string& path);
    // Finds `common` of every drive. Pieces are compared with their letter case. One drive whose paths have
    // nothing in common, not even the drive ("C:name"), leaves the drives not reached by then without one.
    void compute();
    void clear() { *this = {}; }
};

} // namespace vs::project_resave
