// What a run created on the disk: the copies, the files that it wrote itself, and the folders. A stopped run
// removes these and nothing else. Main thread only.
#pragma once

#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "platform/path_text.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// A file that the run created.
struct made_file {
    wide_string source; // empty for a file that was not copied
    wide_string path;
};

class made_files {
public:
    // Adds a copied file, whose name was free before.
    void add_copy(const wide_string& source, const wide_string& path) {
        files_.push_back({source, path});
        copies_.insert_or_assign(path_key(path), source);
    }
    // Adds a file that the run wrote itself; adding a name again has no effect.
    void add_written(const wide_string& path) {
        if (written_.insert(path_key(path)).second) files_.push_back({{}, path});
    }
    // Adds a folder that the run created.
    void add_folder(const wide_string& path) { folders_.push_back(path); }
    // Adds a folder that is one data set.
    void add_data_set(const wide_string& path) { sets_.insert(path_key(path_normalise(path))); }
    bool is_data_set(const wide_string& path) const { return sets_.contains(path_key(path_normalise(path))); }
    // Forgets everything.
    void clear() { *this = {}; }

    // Records the content of a folder before another bundle copies into it; does nothing if that was done
    // before. A folder that does not exist counts as empty; one that cannot be read is not recorded.
    void note_folder(const wide_string& folder);
    // True if the path did not exist when a folder above it was recorded; false if none was.
    bool is_new(const wide_string& path) const;

    // True for a copy of a source file: nothing that the run writes itself may replace it.
    bool is_copy(const wide_string& path) const { return copies_.contains(path_key(path)); }
    // Returns the source of such a copy; null for any other path. Valid until the next change.
    const wide_string* source_of(const wide_string& path) const {
        const auto row = copies_.find(path_key(path));
        return row == copies_.end() ? nullptr : &row->second;
    }
    // Return files and folders in the order in which they were created.
    const std::vector<made_file>& files() const { return files_; }
    const std::vector<wide_string>& folders() const { return folders_; }

private:
    std::vector<made_file> files_;
    std::vector<wide_string> folders_;
    std::unordered_map<wide_string, wide_string> copies_; // sources, by path key
    std::unordered_set<wide_string> written_, sets_;      // path keys
    std::unordered_map<wide_string, std::unordered_set<wide_string>>
        noted_; // by path key of the folder: path keys of its entries
};

} // namespace vs::project_resave
