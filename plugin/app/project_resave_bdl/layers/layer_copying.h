// Families of files that layers of several kinds share. The answer is true whatever happened: failures stand
// in report and log, and a failed main file does not keep its companions back.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

class project_context;

// A file and its projection.
bool copy_file_and_projection(const wide_string& source, const wide_string& target, project_context& context);
// A file, what the host names as its data set, and its projection.
bool copy_data_set(const wide_string& source, const wide_string& target, project_context& context);
// A data set that is a folder. It is entered in the placement as one.
bool copy_data_folder(const wide_string& source, const wide_string& target, project_context& context);

} // namespace vs::project_resave
