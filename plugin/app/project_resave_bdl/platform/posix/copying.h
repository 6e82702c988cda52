// The copy of one file between two native paths.
#pragma once

#include <string>

namespace vs::project_resave::platform {

/// Does what `system::copy_file` promises. May be called from any thread.
bool copy_regular_file(const std::string& source, const std::string& target, bool replace);

} // namespace vs::project_resave::platform
