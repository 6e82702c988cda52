// Data sets as the host opens them: their files, and the records of a vector source; and the joins of tables.
// Main thread only.
#pragma once

#include <cstdint>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/stat_source.h"
#include "host/types.h"
#include "operations/run/path_files.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Sets `out` to the files that the host lists for the data set at `path`, in its order; they need not exist.
// Returns false, with `out` empty, for an empty path or if the host cannot open it.
bool data_source_files(const wide_string& path, std::vector<wide_string>& out);

// Appends the existing ones of these files. Returns false, with nothing appended, if the host cannot open the
// data set.
bool append_existing_files(const wide_string& path, std::vector<found_file>& out);

// Reads the records of a vector source one after the other. The source stays open as long as this object.
class vector_datasource {
public:
    // Opens the source that a layer names; `data` is the handle of the layer's data, or null. Closes the
    // previous source. Returns false if the host cannot open it.
    bool open(const wide_string& source, vs_data* data);
    // Returns the index of the field with exactly this name; -1 if there is none or no source is open.
    int32_t find_field(const wide_string& name) const;
    // Go to the first and to the next record; return false if there is none.
    bool first() const;
    bool next() const;
    // Returns the text of a field of the current record.
    wide_string text(int32_t field) const;

private:
    ref<stat_source_impl> source_;
};

// Tables joined to other tables. A run removes the joins, since the joined table may be one that is copied
// later anyway, and restores them when every table has its new place.

struct run_state;

// Returns the files of the tables joined to a table, in order; none for a null table.
std::vector<wide_string> joined_tables(vs_attr_data* attr_data);
// Records all joins of a table, with the current element, and removes them. Does nothing for a null table or
// a table without joins.
void take_joins_off(vs_attr_data* attr_data, run_state& run);
// Reports the joins of a table whose file was already copied: they still refer to the original tables.
void note_kept_joins(vs_attr_data* attr_data, run_state& run);
// True if this table's joins were the last ones removed.
bool lacks_joins(vs_attr_data* attr_data, const run_state& run);
// Restores all removed joins, writes the unfinished files again and clears both lists. Copies joined tables
// that have no new place yet. A lost table is recorded in the log and the report, and its join is not
// restored.
void put_joins_back(run_state& run);

} // namespace vs::project_resave
