// Finds the element that a file belongs to, for lists of files.
#pragma once

#include <unordered_map>

#include "apps/vestra_resave/elements.h"
#include "operations/run/run_report.h"

namespace vestra::command {

class source_elements;

// Maps files to the names of their elements; later lookups ignore letter case of paths. Works on paths only
// and never asks the disk.
class names_by_file {
public:
    names_by_file() = default;
    // Adds all elements of the source project that have a file.
    explicit names_by_file(const source_elements& source);

    // Adds a file; an empty path is ignored. If two elements have the same file, the first one added is used.
    void add(const wide_string& file, const vs::project_resave::element_name& name);
    // Returns the element of the file, of a file with the same stem in its folder (a file of the same data
    // set), or of a folder that contains it; null if there is none. The pointer is valid as long as
    // this object.
    const vs::project_resave::element_name* find(const wide_string& file) const;

private:
    std::unordered_map<wide_string, vs::project_resave::element_name> names_, stems_; // by path key
};

} // namespace vestra::command
