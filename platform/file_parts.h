// The parts of a target's `system` that have a source of their own: copying.cpp and open_file.cpp. Included
// by the sources below posix/ and windows/ only. All functions may be called from any thread.
#pragma once

#include <memory>

#include "platform/system.h"

namespace vs::project_resave::platform {

// Does what `system::copy_file` promises.
outcome copy_regular_file(const wide_string& source, const wide_string& target, bool replace);
// Does what `system::rename_over` promises.
outcome rename_file_over(const wide_string& from, const wide_string& to);
// Does what `system::open` promises.
outcome open_regular_file(const wide_string& path, access wanted, disposition how,
                          std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
