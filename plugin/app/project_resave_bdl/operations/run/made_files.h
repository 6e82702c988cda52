// What a run made on the disk: the copies, the files it wrote itself, and the folders. A stopped run erases
// these and nothing else. Main thread only.
#pragma once

#include <unordered_set>
#include <vector>

#include "platform/path_text.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct made_file {
    wide_string source; // empty for a file that was not copied
    wide_string path;
};

class made_files {
public:
    // A file that was copied, to a name that was free.
    void add_copy(const wide_string& source, const wide_string& path) {
        files_.push_back({source, path});
        copies_.insert(path_key(path));
    }
    // A file that the run wrote itself. A second time under one name counts once.
    void add_written(const wide_string& path) {
        if (written_.insert(path_key(path)).second) files_.push_back({{}, path});
    }
    void add_folder(const wide_string& path) { folders_.push_back(path); }
    void clear() { *this = {}; }

    // True for a copy of a file of the source: nothing that the run writes itself may replace it.
    bool is_copy(const wide_string& path) const { return copies_.contains(path_key(path)); }
    // In the order in which they were made.
    const std::vector<made_file>& files() const { return files_; }
    const std::vector<wide_string>& folders() const { return folders_; }

private:
    std::vector<made_file> files_;
    std::vector<wide_string> folders_;
    std::unordered_set<wide_string> copies_, written_; // path keys
};

} // namespace vs::project_resave
