// Tables joined to other tables. A run takes the joins off, as the joined table may be one that it copies
// later anyway, and puts them on again once every table has its place.
#pragma once

#include "host/types.h"

namespace vs::project_resave {

struct run_state;

// Notes all joins of a table under the current element and takes them off it. Nothing for a null table and
// one without joins.
void take_joins_off(vs_attr_data* attr_data, run_state& run);
// Enters in the report the joins of a table whose file has its place already: they keep naming the original
// tables.
void note_kept_joins(vs_attr_data* attr_data, run_state& run);
// Puts all pending joins on again and forgets them, copying the tables that have no place yet. A table that
// is lost goes into log and report, and its join stays off.
void put_joins_back(run_state& run);

} // namespace vs::project_resave
