// An open file over a descriptor, and the opening that keeps other writers out. All may be called from any
// thread.
#pragma once

#include <memory>
#include <string>

#include "platform/posix/descriptor.h"
#include "platform/system.h"

namespace vs::project_resave::platform {

/// Makes a file, or opens one without waiting as a pipe would make us; none on failure. `flags`, beside
/// O_CREAT, and `mode` as the system's open takes them.
descriptor create_native(const std::string& path, int flags, unsigned mode);
/// Opens without waiting what stands there in the spelling asked for, or else in another; none on failure.
descriptor open_existing(const wide_string& path, int flags);

/// Makes a file of `opened` if that is a regular one: shared by readers, alone for a writer, and empty if
/// `empties`. The lock is advisory: it holds against processes that use it too.
open_result lock_regular_file(descriptor opened, bool writes, bool empties, std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
