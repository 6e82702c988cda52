// What a run made on the disk: the copies, the files it wrote itself, and the folders. A stopped run erases
// these and nothing else. Main thread only.
#pragma once

#include <unordered_map>
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
        copies_.insert_or_assign(path_key(path), source);
    }
    // A file that the run wrote itself. A second time under one name counts once.
    void add_written(const wide_string& path) {
        if (written_.insert(path_key(path)).second) files_.push_back({{}, path});
    }
    void add_folder(const wide_string& path) { folders_.push_back(path); }
    // A folder that is one data set.
    void add_data_set(const wide_string& path) { sets_.insert(path_key(path_normalise(path))); }
    bool is_data_set(const wide_string& path) const { return sets_.contains(path_key(path_normalise(path))); }
    void clear() { *this = {}; }

    // Notes what is in a folder before another bundle copies into it; for a folder that was noted before,
    // nothing is done. A folder that does not exist is noted as empty, one that cannot be read not at all.
    void note_folder(const wide_string& folder);
    // True if the path was not there when a folder above it was noted. False if none was.
    bool is_new(const wide_string& path) const;

    // True for a copy of a file of the source: nothing that the run writes itself may replace it.
    bool is_copy(const wide_string& path) const { return copies_.contains(path_key(path)); }
    // The source of such a copy; null for anything else. Valid until the next change.
    const wide_string* source_of(const wide_string& path) const {
        const auto row = copies_.find(path_key(path));
        return row == copies_.end() ? nullptr : &row->second;
    }
    // In the order in which they were made.
    const std::vector<made_file>& files() const { return files_; }
    const std::vector<wide_string>& folders() const { return folders_; }

private:
    std::vector<made_file> files_;
    std::vector<wide_string> folders_;
    std::unordered_map<wide_string, wide_string> copies_; // sources, by path key
    std::unordered_set<wide_string> written_, sets_;      // path keys
    std::unordered_map<wide_string, std::unordered_set<wide_string>>
        noted_; // path keys, by that of the folder
};

} // namespace vs::project_resave
