// The copy of one file.
#pragma once

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

/// Does what `system::copy_file` promises. May be called from any thread.
outcome copy_regular_file(const wide_string& source, const wide_string& target, bool replace);
/// What `system::rename_over` promises, on system paths. May be called from any thread.
outcome rename_file_over(const wide_string& from, const wide_string& to);

} // namespace vs::project_resave::platform
