// The size of elements with all their files: the data sets that the host reports, and the files that belong
// to them by name.
#pragma once

#include <cstdint>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/folder_files.h"

namespace vs::project_resave {
class size_register;
}

namespace vestra::command {

// Computes the sizes of elements and their totals. Requests each file and lists each folder once, so the cost
// is linear in the number of files even if all elements share them. Sizes are those of the current disk when
// a file is first used.
class family_sizes {
public:
    // `known` has the files registered for the elements of the loaded project; it must outlive this object.
    explicit family_sizes(const vs::project_resave::size_register& known) : known_(known) {}

    // Sets the bytes of an element whose file exists, and of its children. A file that the element uses twice
    // counts once in it; one that two elements use counts in both.
    void set_bytes(element& shown);

    // Return the totals of all elements so far; a file used by several elements counts once.
    size_t files() const { return files_.size(); }
    uint64_t bytes() const { return bytes_; }

private:
    using path_keys = std::unordered_set<wide_string>;

    // Both return the bytes of the files that are not in `counted` yet, and add them to it.
    uint64_t add(const wide_string& path, path_keys& counted);
    uint64_t add_family(const wide_string& path, path_keys& counted);

    const vs::project_resave::size_register& known_;
    listed_folders beside_;
    std::unordered_map<wide_string, uint64_t> files_;                    // by path key
    std::unordered_map<wide_string, std::vector<wide_string>> folders_;  // the files in each, at any depth
    std::unordered_map<wide_string, std::vector<wide_string>> families_; // by folder key and spelled name
    uint64_t bytes_ = 0;
};

} // namespace vestra::command
