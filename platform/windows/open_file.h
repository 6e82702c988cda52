// An open file over a handle.
#pragma once

#include <memory>

#include "platform/system.h"

namespace vs::project_resave::platform {

/// Does what `system::open` promises. May be called from any thread.
outcome open_regular_file(const wide_string& path, access wanted, disposition how,
                          std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
