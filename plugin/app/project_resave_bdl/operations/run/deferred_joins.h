// Joins of tables that a run has removed and restores once every table has its new place. Main thread only.
#pragma once

#include <cstdint>
#include <functional>
#include <map>
#include <vector>

#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// One removed join. Fields are indexes as the host returns them.
struct pending_join {
    vs_attr_data* attr_data = nullptr; // the base table, owned by the host
    int32_t base_field = 0;
    wide_string other_source; // path of the table that was joined
    int32_t other_field = 0;
    element_name owner; // the base table's owner
};

// A scene or layer file that was written while one of its tables lacked its joins.
struct unfinished_file {
    wide_string source; // the source path, as in the placement
    wide_string path;
    std::function<bool()> write; // writes it again; false on failure
};

// The joins of one run.
struct deferred_joins {
    std::vector<pending_join> pending;
    // Files to write again when the joins are restored, by path_key.
    std::map<wide_string, unfinished_file> unfinished;

    void clear() { *this = {}; }
};

} // namespace vs::project_resave
