// Libraries of code that are loaded by name while the program runs.
#pragma once

#include <memory>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// A loaded library; unloaded by the destructor, which runs the destructors of its static objects.
class library {
public:
    // Loads the file of a drive path, and no other of that name. Where drives are folders, the variable
    // VESTRA_DRIVES has them from then on, for the library to read. Returns null and sets `reason`, in the
    // operating system's words, if there is no such file, it is not a library of this target, or it needs
    // one that is missing.
    static std::unique_ptr<library> open(const wide_string& path, wide_string& reason);

    ~library();
    library(const library&) = delete;
    library& operator=(const library&) = delete;

    // Returns the address of what the library exports under `name`, null if nothing. It is valid as long as
    // the library.
    void* symbol(const char* name) const;

private:
    explicit library(void* handle) : handle_(handle) {}

    void* handle_;
};

// Returns the drive path of the library `name`, given without the target's extension, that was installed with
// the running program: in the program's own folder, as in a build folder and on Windows, else in the folder
// that the same installation has for libraries of its own, wherever that was moved to. The file need not
// exist.
wide_string installed_library(wide_view name);

} // namespace vs::project_resave::platform
