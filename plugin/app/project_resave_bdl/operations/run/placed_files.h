// The files of a run that have been placed, and the folder that all files share. Main thread only.
#pragma once

#include <cstdint>
#include <deque>
#include <unordered_map>
#include <vector>

#include "operations/run/text_map.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// A file and the place of its copy.
struct placed_file {
    wide_string old_path; // empty for a file without a source
    wide_string new_path;
};

// Files in the order in which they were placed. A look-up returns what a scan from the oldest entry would, in
// constant time. Paths that differ only in letter case are the same file only if the operating system says
// so.
class placed_files {
public:
    // Appends a file. A file may be added again; look-ups return the oldest entry.
    void add(const wide_string& old_path, const wide_string& new_path);
    // Returns the oldest entry for this source; null if there is none. Valid until the next `add` or `clear`.
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

// The folder on one drive that contains all files of a set.
struct drive_paths {
    // What the folders of all counted files begin with, as pieces; the first piece is the drive. Pieces are
    // compared with their letter case.
    std::vector<wide_string> shared;
    size_t counted = 0; // files
    wide_string common; // "C:\data\maps", without a separator at the end
};

// Finds the top folder that all files share, for each drive.
class common_directory {
public:
    // Keyed by drive in the spelling of the paths, so "c:" and "C:" are two drives.
    std::unordered_map<wide_string, drive_paths> drives;
    // False while `common` of the drives is out of date.
    bool computed = false;

    // Counts the folder of a file. A path without a drive is ignored.
    void add_path(const wide_string& path);
    // Computes `common` of every drive. A drive whose paths have nothing in common, not even the drive
    // ("C:name"), ends the computation; the drives after it have no common folder.
    void compute();
    void clear() { *this = {}; }
};

} // namespace vs::project_resave
