// Joins of tables that a run takes off, and puts on again once every table has its place: the joined table
// may be one that the run copies later anyway.
#pragma once

#include <cstdint>
#include <vector>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class log_file;
class path_placement;
class run_report;

struct pending_join {
    vs_attr_data* attr_data = nullptr; // the base table; the host's
    int32_t base_field = 0;            // both as the host gives them
    wide_string other_source;          // the table that was joined
    int32_t other_field = 0;
};

class deferred_joins {
public:
    // All three must outlive this object.
    deferred_joins(path_placement* places, log_file* lines, run_report* problems)
        : placement(places), log(lines), report(problems) {}

    path_placement* placement;
    log_file* log;
    run_report* report;
    std::vector<pending_join> pending;

    // Notes all joins of a table and takes them off it. Nothing for a null table and one without joins.
    void take_off(vs_attr_data* attr_data);
    // Reports the joins of a table whose file has its place already: they go on leading to their
    // sources. `owner` is the caption of the element.
    void note_kept(vs_attr_data* attr_data, const wide_string& owner);
    // Puts all pending joins on again and forgets them, copying the tables that have no place yet. A table
    // that is lost goes into log and report, and its join stays off.
    void run();

private:
    void rejoin(const pending_join& join);
};

} // namespace vs::project_resave
