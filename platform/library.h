// Libraries of code that are loaded by name while the program runs.
#pragma once

#include <memory>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

/// A loaded library; unloaded by the destructor, which runs the destructors of its static objects.
class library {
public:
    /// Loads the file of a drive path, and no other of that name. Where drives are folders they stand in the
    /// variable VESTRA_DRIVES from then on, for the library to read. Null with the system's `reason` if there
    /// is no such file, it is no library of this target, or it needs one that is not there.
    static std::unique_ptr<library> open(const wide_string& path, wide_string& reason);

    ~library();
    library(const library&) = delete;
    library& operator=(const library&) = delete;

    /// Address of what the library exports under `name`; null if nothing. Ends with the library.
    void* symbol(const char* name) const;

private:
    explicit library(void* handle) : handle_(handle) {}

    void* handle_;
};

/// Drive path of the library of this name, told without the target's ending, in the folder of the program
/// that runs; it need not be there.
wide_string library_beside_program(wide_view name);

} // namespace vs::project_resave::platform
