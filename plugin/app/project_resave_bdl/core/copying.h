// Copies a file with all that belongs to it. `source` and `target` are the paths of the main file; its
// companions go next to it under its new name. A copy never replaces a file, and creates no folder for it.
// What was copied is entered in the placement; a failed copy goes into report and log, and the next one is
// tried. Except where noted, functions return true whatever happened.
//
// The names of companions are those of operations/run/path_files.h.
#pragma once

#include <optional>
#include <vector>

#include "host/types.h"
#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

struct run_state;

// A copy that failed, and why.
struct failed_copy {
    wide_string path;
    wide_string new_path;
    platform::outcome why;
};

// Enters a failed copy in report and log. The user reads `shown`, by default the path that failed.
void record_copy_failure(run_state& run, const failed_copy& failed, const wide_string& shown = {});
// Enters a missing file: its path in the log, in the final message `subject`, which says whose it was.
void record_lost_source(run_state& run, const wide_string& path, const wide_string& subject);

// Enters a file for which the structure has no place. The log names `logged`.
void record_no_place(run_state& run, const wide_string& path, const wide_string& logged);

// Copies one file. False if it failed.
bool copy_one(const wide_string& source, const wide_string& target, run_state& run);

// A table and its code page file, if that exists; without the tables joined to it.
bool copy_table(const wide_string& source, const wide_string& target, run_state& run);
// The same; the joins of `attr_data`, which may be null, are taken off it until the end of the run.
bool copy_table_and_joins(vs_attr_data* attr_data, const wide_string& source, const wide_string& target,
                          run_state& run);
// A shape file with index and projection and, unless `attr_data` is null, its table and the joins of it.
bool copy_shape_family(const wide_string& source, const wide_string& target, vs_attr_data* attr_data,
                       run_state& run);

// The projection file, if it exists and was not placed before: two files may share one. False if the copy
// failed.
bool copy_projection_file(const wide_string& source, const wide_string& target, run_state& run);
// A raster with its overviews, world files and projection. Throws std::out_of_range, before the projection,
// for a main file whose extension has fewer than two letters.
bool copy_raster_family(const wide_string& source, const wide_string& target, run_state& run);
// A file and its projection.
bool copy_file_and_projection(const wide_string& source, const wide_string& target, run_state& run);
// A file, what the host names as its data set, and its projection.
bool copy_data_set(const wide_string& source, const wide_string& target, run_state& run);
// Every file that the host names for the data set and that was not placed before. Members follow a new stem
// of the main file, and lower case. Those of a TOS file keep their case, and are copied again where it looks
// for them in another place. A renamed main file that reads a file which is not its copy is a fact. False,
// without a record, if the host cannot open it.
bool copy_data_source_files(const wide_string& source, const wide_string& target, bool of_tos,
                            run_state& run);
// The same for a TOS file, which is one of the members: its case is kept, and one that the host cannot open
// is entered as not read.
bool copy_tos_files(const wide_string& source, const wide_string& target, run_state& run);

// A file and the folder of the same stem beside it, if there is one. The folder is not tried, and nothing
// entered, if the file failed.
bool copy_file_and_folder(const wide_string& source, const wide_string& target, run_state& run);
// A data set that is a folder. It is entered in the placement as one.
bool copy_data_folder(const wide_string& source, const wide_string& target, run_state& run);
// A folder with all it holds; nothing is entered or recorded. Fails if `source` cannot be listed, if `target`
// exists and must not, and at the first failure, which it returns; what was copied by then stays.
std::optional<failed_copy> copy_folder(const wide_string& source, const wide_string& target,
                                       bool allow_existing_target, bool overwrite_files, run_state& run);

} // namespace vs::project_resave
