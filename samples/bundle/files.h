// Files by the paths that the host uses: C:\data\a.txt.
#pragma once

#include "platform/wide_string.h"

namespace sample {

using vs::project_resave::wide_string;

bool file_exists(const wide_string& path);

// Returns false, and leaves nothing new on the disk, if the source cannot be read or the target exists.
bool copy_file(const wide_string& source, const wide_string& target);

} // namespace sample
