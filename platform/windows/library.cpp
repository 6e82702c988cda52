// Loads libraries on Windows and finds those that are installed with the program.
#include "platform/library.h"

#include <windows.h>

#include "platform/outcome.h"
#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

// Returns why the last attempt to load this library failed.
wide_string reason_of_failure(const std::wstring& native) {
    const DWORD code = ::GetLastError();
    const DWORD found = native.empty() ? INVALID_FILE_ATTRIBUTES : ::GetFileAttributesW(native.c_str());
    if (found == INVALID_FILE_ATTRIBUTES) return u"no such file";
    if ((found & FILE_ATTRIBUTE_DIRECTORY) != 0) return u"is a folder";
    // The operating system's text for this error contains a placeholder for the name.
    if (code == ERROR_BAD_EXE_FORMAT) return u"not a library for this operating system";
    if (code == ERROR_MOD_NOT_FOUND) return u"it needs a library that does not exist";
    return outcome::native(code).text();
}

} // namespace

std::unique_ptr<library> library::open(const wide_string& path, wide_string& reason) {
    const std::wstring native = native_path(path).wstring();
    // With the altered search path the library finds others next to itself, not next to the program.
    const HMODULE handle =
        native.empty() ? nullptr : ::LoadLibraryExW(native.c_str(), nullptr, LOAD_WITH_ALTERED_SEARCH_PATH);
    if (handle == nullptr) {
        reason = reason_of_failure(native);
        return nullptr;
    }
    return std::unique_ptr<library>(new library(handle));
}

library::~library() { ::FreeLibrary(static_cast<HMODULE>(handle_)); }

void* library::symbol(const char* name) const {
    return reinterpret_cast<void*>(::GetProcAddress(static_cast<HMODULE>(handle_), name));
}

wide_string installed_library(wide_view name) {
    std::wstring program(MAX_PATH, L'\0');
    for (;;) {
        const auto room = static_cast<DWORD>(program.size());
        const DWORD length = ::GetModuleFileNameW(nullptr, program.data(), room);
        // A result that fills the buffer may be cut off.
        if (length < room) {
            program.resize(length);
            break;
        }
        program.resize(program.size() * 2);
    }
    const size_t folder_length = program.rfind(L'\\') + 1;
    return wide_string(program.begin(), program.begin() + static_cast<ptrdiff_t>(folder_length)) +
           wide_string(name) + u".dll";
}

} // namespace vs::project_resave::platform
