// Copies a file with all that belongs to it. `source` and `target` are the paths of the main file; its
// companions land beside it under its new name. A copy never replaces a file, and creates no folder for it.
// What was copied is entered in the placement; a copy that failed stands in report and log, and the next one
// is tried. Except where told, the result is true whatever happened.
//
// Names beside C:\a\b.tif: b_tif.pj4, b.cpg, b.tif.ovr, world file b.tfw and its sibling b.tfr, b.shx, b.dbf.
#pragma once

#include <vector>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class log_file;
class path_placement;
class project_context;
class run_report;

// One file. False if it failed.
bool copy_one(const wide_string& source, const wide_string& target, path_placement& placement, log_file& log,
              run_report& report);
bool copy_one(const wide_string& source, const wide_string& target, project_context& context);

// The code page file of a table, if it exists. False if the copy failed.
bool copy_code_page_file(const wide_string& source, const wide_string& target, path_placement& placement,
                         log_file& log, run_report& report);
bool copy_code_page_file(const wide_string& source, const wide_string& target, project_context& context);

// A table and its code page file; without the tables joined to it.
bool copy_table(const wide_string& source, const wide_string& target, path_placement& placement,
                log_file& log, run_report& report);
bool copy_table(const wide_string& source, const wide_string& target, project_context& context);

// Path of the projection file that belongs to a main file, whether it exists or not.
wide_string projection_file_name(const wide_string& path);
// The projection file, if it exists and was not placed before: two files may share one. False if the copy
// failed.
bool copy_projection_file(const wide_string& source, const wide_string& target, project_context& context);
// The overviews of a raster. False if there are none, without a record, and if the copy failed.
bool copy_overview_file(const wide_string& source, const wide_string& target, project_context& context);
// The world file and its sibling, as far as they exist. False at the first copy that failed. Throws
// std::out_of_range for a main file whose extension has fewer than two letters.
bool copy_world_files(const wide_string& source, const wide_string& target, project_context& context);

// A table; the joins of `attr_data`, which may be null, are taken off it until the end of the run.
bool copy_table_and_joins(vs_attr_data* attr_data, const wide_string& source, const wide_string& target,
                          project_context& context);
// A shape file with index and projection and, unless `attr_data` is null, its table and the joins of it.
bool copy_shape_family(const wide_string& source, const wide_string& target, vs_attr_data* attr_data,
                       project_context& context);

// A file and the folder of the same stem beside it, if there is one. The folder is not tried, and nothing
// entered, if the file failed.
bool copy_file_and_folder(const wide_string& source, const wide_string& target, project_context& context);

// The names of all that a copy of the file can take along, whether it is there or not.
std::vector<wide_string> companion_files(const wide_string& path);

// A folder with all it holds; nothing is entered or recorded. False if `source` cannot be listed, if `target`
// exists and may not, and at the first failure; what was copied by then stays.
bool copy_folder(const wide_string& source, const wide_string& target, bool allow_existing_target,
                 bool overwrite_files);

// Every file that the host names for the data set and that was not placed before. Members follow a new stem
// of the main file, and lower case unless `keep_case`. False, without a record, if the host cannot open it.
bool copy_data_source_files(const wide_string& source, const wide_string& target, bool keep_case,
                            project_context& context);

// The same for a TOS file, which is one of the members: its case is kept, and one that the host cannot open
// is entered as unread, under the caption of its owner.
bool copy_tos_files(const wide_string& source, const wide_string& target, const wide_string& owner,
                    project_context& context);

// Enters a failed copy in report and log.
void record_copy_failure(const wide_string& path, log_file& log, run_report& report);
// Enters a missing file: its path in the log, in the report the text that tells whose it was.
void record_lost_source(const wide_string& path, const wide_string& text, log_file& log, run_report& report);

} // namespace vs::project_resave
