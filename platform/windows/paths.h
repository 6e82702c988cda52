// The bundle's paths in the form that the operating system takes. Included by the windows sources only.
#pragma once

#include <windows.h>

#include <utility>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Conversions between the two 16-bit character types of this target; the text is not copied.
inline const wchar_t* wide(const char16_t* text) { return reinterpret_cast<const wchar_t*>(text); }
inline wchar_t* wide(char16_t* text) { return reinterpret_cast<wchar_t*>(text); }
inline const char16_t* text16(const wchar_t* text) { return reinterpret_cast<const char16_t*>(text); }

// Returns the path for a call of the operating system. A path near or beyond the old limit of 260 characters
// gets the prefix that lifts the limit. Empty, which no call accepts, for a path with an embedded zero and
// for the name of a device.
wide_string system_path(const wide_string& path);

// Returns the full path, with its drive, and with "." and ".." resolved; empty on failure.
wide_string full_path(const wide_string& path);

// Returns the outcome of a call that was just made for a system path. A path that cannot be expressed has its
// own reason.
inline outcome outcome_at(const wide_string& path, bool succeeded) {
    if (!succeeded && path.empty())
        return outcome::because(u"the name of a device or a stream, or not a path");
    return outcome::of_call(succeeded);
}

// Returns the outcome of `act`, which the read-only attribute of the file at the system path `path` can
// prevent. In that case the attribute is removed for a second attempt, and restored if that fails too.
template <class action>
outcome in_spite_of_read_only(const wide_string& path, action act) {
    const outcome first = outcome_at(path, act());
    if (first) return first;
    const DWORD attributes = GetFileAttributesW(wide(path.c_str()));
    if (attributes == INVALID_FILE_ATTRIBUTES || (attributes & FILE_ATTRIBUTE_READONLY) == 0) return first;
    if ((attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) return first;
    SetFileAttributesW(wide(path.c_str()), attributes & ~DWORD{FILE_ATTRIBUTE_READONLY});
    const outcome second = outcome_at(path, act());
    if (!second) SetFileAttributesW(wide(path.c_str()), attributes);
    return second;
}

// Owner of a file handle.
class file_handle {
public:
    explicit file_handle(HANDLE handle) : handle_(handle) {}
    ~file_handle() { close(); }
    file_handle(const file_handle&) = delete;
    file_handle& operator=(const file_handle&) = delete;

    explicit operator bool() const { return handle_ != INVALID_HANDLE_VALUE; }
    HANDLE get() const { return handle_; }

    // Closes it. Returns false if the operating system could not keep what was written. A second call does
    // nothing.
    bool close() {
        const HANDLE handle = std::exchange(handle_, INVALID_HANDLE_VALUE);
        return handle == INVALID_HANDLE_VALUE || CloseHandle(handle) != FALSE;
    }

private:
    HANDLE handle_;
};

} // namespace vs::project_resave::platform
