// The files of a run that have their place.
#pragma once

#include <cstdint>
#include <deque>

#include "operations/run/text_map.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct placed_file {
    wide_string old_path; // empty for a file that was made and has no source
    wide_string new_path;
};

// Files in the order in which they were placed. A look-up answers as a scan from the oldest entry with
// `path_same` would, at a cost that does not grow with their number.
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

} // namespace vs::project_resave
