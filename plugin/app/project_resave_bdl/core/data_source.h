#pragma once

#include <cstdint>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/stat_source.h"
#include "host/types.h"
#include "operations/run/path_files.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Data sets as the host opens them: which files they have, and the records of a vector source.

// Puts into `out` the files that the host tells of the data set at `path`, in its order, whether they exist
// or not. False, with `out` empty, for an empty path and where the host cannot open it.
bool data_source_files(const wide_string& path, std::vector<wide_string>& out);

// Appends those of them that exist. False, with nothing appended, where the host cannot open the data set.
bool append_existing_files(const wide_string& path, std::vector<found_file>& out);

// Reads the records of a vector source one after the other. Holds the source open for its own life.
class vector_datasource {
public:
    // `source` as the layer names it; `data` is the handle of the layer's data, or null. Closes what was
    // open.
    bool open(const wide_string& source, vs_data* data);
    // Index of the field of exactly this name; -1 if there is none or nothing is open.
    int32_t find_field(const wide_string& name) const;
    // Go to the first and to the next record; false if there is none.
    bool first() const;
    bool next() const;
    // Text of a field of the present record.
    wide_string text(int32_t field) const;

private:
    ref<stat_source_impl> source_;
};

// Tables joined to other tables. A run takes the joins off, as the joined table may be one that it copies
// later anyway, and puts them on again once every table has its place.

struct run_state;

// Returns the files of the tables joined to one, in order; none for a null table.
std::vector<wide_string> joined_tables(vs_attr_data* attr_data);
// Notes all joins of a table under the current element and takes them off it. Nothing for a null table and
// one without joins.
void take_joins_off(vs_attr_data* attr_data, run_state& run);
// Enters in the report the joins of a table whose file has its place already: they keep naming the original
// tables.
void note_kept_joins(vs_attr_data* attr_data, run_state& run);
// True if the joins of this table were the last ones that were taken off.
bool lacks_joins(vs_attr_data* attr_data, const run_state& run);
// Puts all pending joins on again, writes the unfinished files and forgets both, copying the tables that have
// no place yet. A table that is lost goes into log and report, and its join stays off.
void put_joins_back(run_state& run);

} // namespace vs::project_resave
