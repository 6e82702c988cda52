#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "operations/run/text_map.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// The files of a run that have their place.
struct placed_file {
    wide_string old_path; // empty for a file that was made and has no source
    wide_string new_path;
};

// Files in the order in which they were placed. A look-up answers as a scan from the oldest entry would, at a
// cost that does not grow with their number. Paths that differ in letter case alone name one file only if the
// system says so.
class placed_files {
public:
    void add(const wide_string& old_path, const wide_string& new_path);
    // The oldest entry for this source; null if there is none. Valid until the next `add` or `clear`.
    const placed_file* find(const wide_string& source) const;
    void clear();

    const std::deque<placed_file>& entries() const { return entries_; }
    auto begin() const { return entries_.begin(); }
    auto end() const { return entries_.end(); }
    size_t size() const { return entries_.size(); }
    bool empty() const { return entries_.empty(); }
    const placed_file& operator[](size_t index) const { return entries_[index]; }

private:
    const placed_file* find(const wide_string& source, size_t hash) const;

    std::deque<placed_file> entries_;
    row_index oldest_; // by the hash of path_key of the old path
};

// The folder, for each drive, in which all files of a set lie.
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
