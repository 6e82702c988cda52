// The spelling that the disk holds for a path.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

// The absolute path with each component as the listing of its folder spells it; the drive as it stands, and a
// component that no entry matches as well. False, with an empty result, for a path that is empty, relative or
// on a share, and for one that does not exist.
bool true_case_path(const wide_string& path, wide_string& result);

} // namespace vs::project_resave
