// An open file over a descriptor, and the opening that keeps other writers out.
#pragma once

#include <memory>
#include <string>

#include "platform/system.h"

namespace vs::project_resave::platform {

/// Does what `system::open` promises, on a native path. The lock that keeps others out is advisory: it holds
/// against processes that use it too. May be called from any thread.
open_result open_regular_file(const std::string& path, access wanted, disposition how,
                              std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
