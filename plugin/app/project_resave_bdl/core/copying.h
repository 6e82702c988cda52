// Copies a file with everything that belongs to it. `source` and `target` are the paths of the main file; its
// companions are placed next to the target, with its new name. A copy never replaces a file and, except for
// folders of data sets, creates no folder. Copied files are recorded in the placement; a failed copy is
// recorded in the report and the log, and the next one is tried. Unless noted otherwise, functions return
// true even after a failure. Main thread only.
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

// Records a failed copy in the report and the log. The user sees `shown`, by default the path that failed.
void record_copy_failure(run_state& run, const failed_copy& failed, const wide_string& shown = {});
// Records a missing file: its path in the log, and `subject`, which names its owner, in the final message.
void record_lost_source(run_state& run, const wide_string& path, const wide_string& subject);

// Records a file for which the structure has no place. The log shows `logged`.
void record_no_place(run_state& run, const wide_string& path, const wide_string& logged);

// Copies one file. Returns false if that failed.
bool copy_one(const wide_string& source, const wide_string& target, run_state& run);

// Copies a table and, if it exists, its code page file; not the tables joined to it.
bool copy_table(const wide_string& source, const wide_string& target, run_state& run);
// Does the same, and removes the joins of `attr_data`, which may be null, until the end of the run.
bool copy_table_and_joins(vs_attr_data* attr_data, const wide_string& source, const wide_string& target,
                          run_state& run);
// Copies a shape file with its index and projection and, unless `attr_data` is null, its table; removes the
// table's joins.
bool copy_shape_family(const wide_string& source, const wide_string& target, vs_attr_data* attr_data,
                       run_state& run);

// Copies the projection file, if it exists and was not copied before, since two files may share one. Returns
// false if the copy failed.
bool copy_projection_file(const wide_string& source, const wide_string& target, run_state& run);
// Copies a raster with its overviews, world files and projection. Throws std::out_of_range, before copying
// the projection, if the main file's extension has fewer than two letters.
bool copy_raster_family(const wide_string& source, const wide_string& target, run_state& run);
// Copies a file and its projection.
bool copy_file_and_projection(const wide_string& source, const wide_string& target, run_state& run);
// Copies a file, the files that the host lists for its data set, and its projection.
bool copy_data_set(const wide_string& source, const wide_string& target, run_state& run);
// Copies every file that the host lists for the data set and that was not copied before. Members follow a new
// stem of the main file and the option for lower case. Members of a TOS file keep their case, and are copied
// again if it looks for them in another place. If a renamed main file reads a file that is not its copy, that
// is recorded as a fact. Returns false, without a record, if the host cannot open the data set.
bool copy_data_source_files(const wide_string& source, const wide_string& target, bool of_tos,
                            run_state& run);
// Does the same for a TOS file, which is one of the members: its letter case does not change. Records a file
// that the host cannot open as not read.
bool copy_tos_files(const wide_string& source, const wide_string& target, run_state& run);

// Copies a file and, if it exists, the folder with the same stem next to it. If copying the file fails, the
// folder is skipped and nothing is recorded as placed.
bool copy_file_and_folder(const wide_string& source, const wide_string& target, run_state& run);
// Copies a data set that is a folder, which is recorded in the placement as one entry.
bool copy_data_folder(const wide_string& source, const wide_string& target, run_state& run);
// Copies a folder with all its content; records nothing. Returns the first failed copy, or nothing on
// success. Fails if `source` cannot be listed, if `target` exists and must not, or on the first failed copy;
// files copied so far remain.
std::optional<failed_copy> copy_folder(const wide_string& source, const wide_string& target,
                                       bool allow_existing_target, bool overwrite_files, run_state& run);

} // namespace vs::project_resave
