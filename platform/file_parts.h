// The parts of a target's `system` that have their own source: copying.cpp and open_file.cpp. Included only
// by the sources in posix/ and windows/. All functions may be called from any thread.
#pragma once

#include <memory>

#include "platform/system.h"

namespace vs::project_resave::platform {

// Implements `system::copy_file`, with the same contract.
outcome copy_regular_file(const wide_string& source, const wide_string& target, bool replace);
// Implements `system::rename_over`, with the same contract.
outcome rename_file_over(const wide_string& from, const wide_string& to);
// Implements `system::open`, with the same contract.
outcome open_regular_file(const wide_string& path, access wanted, disposition how,
                          std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
