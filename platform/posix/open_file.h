// An open file over a descriptor, and the opening that keeps other writers out. All may be called from any
// thread.
#pragma once

#include <sys/stat.h>

#include <memory>
#include <string>

#include "platform/posix/descriptor.h"
#include "platform/system.h"

namespace vs::project_resave::platform {

/// Creates a file, or opens one without waiting as a pipe would make us. `flags`, beside O_CREAT, and `mode`
/// as the operating system's open takes them.
outcome create_native(const std::string& path, int flags, unsigned mode, descriptor& opened);
/// Opens without waiting what exists in the spelling asked for, or else in another.
outcome open_existing(const wide_string& path, int flags, descriptor& opened);
/// The status of what was opened; fails unless it is a regular file.
outcome regular_status(const descriptor& opened, struct stat& status);

/// Makes a file of `opened` if that is a regular one: shared by readers, alone for a writer, and empty if
/// `empties`. The lock is advisory: it holds against processes that use it too.
outcome lock_regular_file(descriptor opened, bool writes, bool empties, std::unique_ptr<file>& result);

} // namespace vs::project_resave::platform
