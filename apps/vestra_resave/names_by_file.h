// Which element a file belongs to, for a person who looks at a list of files.
#pragma once

#include <unordered_map>

#include "apps/vestra_resave/elements.h"
#include "operations/run/run_report.h"

namespace vestra::command {

class source_elements;

class names_by_file {
public:
    names_by_file() = default;
    explicit names_by_file(const source_elements& source);

    // Of two elements with one file, the first one added counts.
    void add(const wide_string& file, const vs::project_resave::element_name& name);
    // Returns the element of the file, of a file with its stem in the same folder, as the files of a data set
    // have, or of a folder that it is in; null if there is none.
    const vs::project_resave::element_name* find(const wide_string& file) const;

private:
    std::unordered_map<wide_string, vs::project_resave::element_name> names_, stems_; // by path key
};

} // namespace vestra::command
