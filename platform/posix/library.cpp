// Loads libraries on POSIX and finds those that are installed with the program.
#include "platform/library.h"

#include <dlfcn.h>

#include <cstdlib>
#include <filesystem>

#include "platform/posix/volumes.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

// Returns why the library could not be loaded. The operating system repeats the path, and its words for a
// file that is no library at all are about the format.
wide_string last_error(const std::string& native) {
    const char* const told = ::dlerror();
    std::string text = told != nullptr ? told : "";
    if (text.starts_with(native + ": ")) text.erase(0, native.size() + 2);
    for (const char* const format : {"invalid ELF header", "file too short", "wrong ELF class"})
        if (text.starts_with(format)) return u"not a library for this operating system";
    return from_utf8(text);
}

} // namespace

std::unique_ptr<library> library::open(const wide_string& path, wide_string& reason) {
    const std::string native = native_path(path).string();
    std::error_code ignored;
    const bool is_folder = !native.empty() && std::filesystem::is_directory(native, ignored);
    if (native.empty() || is_folder || !std::filesystem::exists(native, ignored)) {
        reason = is_folder ? u"is a folder" : u"no such file";
        return nullptr;
    }
    // A library that opens files itself takes over the drives of this process.
    ::setenv("VESTRA_DRIVES", mapped_volumes().assignments().c_str(), 1);
    // At once, so that a missing symbol is reported here and not in the middle of a run; and locally, since
    // every bundle has its own copy of this layer and must not use that of another.
    void* const handle = ::dlopen(native.c_str(), RTLD_NOW | RTLD_LOCAL);
    if (handle == nullptr) {
        reason = last_error(native);
        return nullptr;
    }
    return std::unique_ptr<library>(new library(handle));
}

library::~library() { ::dlclose(handle_); }

void* library::symbol(const char* name) const { return ::dlsym(handle_, name); }

wide_string installed_library(wide_view name) {
    std::error_code ignored;
    const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
    const std::filesystem::path folder = program.parent_path();
    const std::string file = to_utf8(name) + ".so";
    // Next to the program in a build or an unpacked archive, else where the installation puts it.
    if (std::filesystem::exists(folder / file, ignored)) return drive_path((folder / file).string());
    return drive_path((folder / VS_BUNDLES_FROM_PROGRAMS / file).lexically_normal().string());
}

} // namespace vs::project_resave::platform
