// Joins of tables that a run has taken off, to be put on again once every table has its place.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct pending_join {
    vs_attr_data* attr_data = nullptr; // the base table; the host's
    int32_t base_field = 0;            // both as the host gives them
    wide_string other_source;          // the table that was joined
    int32_t other_field = 0;
    element_name owner; // of the base table
};

// A scene or layer file that was written while a table of it lacked its joins.
struct unfinished_file {
    wide_string source; // as in the placement
    wide_string path;
    std::function<bool()> write; // over what is there; false if the host could not
};

struct deferred_joins {
    std::vector<pending_join> pending;
    // To be written again when the joins are back, by path_key.
    std::map<wide_string, unfinished_file> unfinished;

    void clear() { *this = {}; }
};

} // namespace vs::project_resave
