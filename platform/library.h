// Libraries of code that are loaded by name while the program runs.
#pragma once

#include <memory>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// A loaded library; unloaded by the destructor, which runs the destructors of its static objects.
class library {
public:
    // Loads the file at a drive path, and never another file of that name. Where drives are folders, the
    // environment variable VESTRA_DRIVES is set to them from then on, so that the library can read it.
    // Returns null and sets `reason` if the file does not exist, is not a library of this target, or needs a
    // library that is missing.
    static std::unique_ptr<library> open(const wide_string& path, wide_string& reason);

    ~library();
    library(const library&) = delete;
    library& operator=(const library&) = delete;

    // Returns the address of what the library exports under `name`; null if it exports nothing of that name.
    // The address is valid as long as the library is loaded.
    void* symbol(const char* name) const;

private:
    explicit library(void* handle) : handle_(handle) {}

    void* handle_;
};

// Returns the drive path of the library `name`, given without the target's extension, that was installed
// together with the running program: in the program's own folder, as in a build folder and on Windows, or
// else in the folder for libraries of the same installation, even if the installation was moved. The file
// need not exist.
wide_string installed_library(wide_view name);

} // namespace vs::project_resave::platform
