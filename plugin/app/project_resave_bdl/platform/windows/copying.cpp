#include "platform/windows/copying.h"

#include <atomic>
#include <string>

#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// Beside the target, so that it can take its place in one step.
wide_string temporary_name(const wide_string& target) {
    static std::atomic<unsigned> count{0};
    const std::wstring number = std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
    const size_t separator = target.find_last_of(u"\\/");
    const wide_string folder = separator == wide_string::npos ? u"" : target.substr(0, separator + 1);
    return folder + u".copy-" + text16(number.c_str()) + u".tmp";
}

bool exists(const wide_string& path) {
    return GetFileAttributesW(wide(path.c_str())) != INVALID_FILE_ATTRIBUTES;
}

} // namespace

// The system itself removes what it had copied when a copy breaks off, and keeps writers away meanwhile.
bool copy_regular_file(const wide_string& source, const wide_string& target, bool replace) {
    const wide_string from = system_path(source);
    const wide_string to = system_path(target);
    if (!replace || !exists(to)) return CopyFileW(wide(from.c_str()), wide(to.c_str()), TRUE) != FALSE;

    const wide_string beside = system_path(temporary_name(target));
    if (CopyFileW(wide(from.c_str()), wide(beside.c_str()), TRUE) == FALSE) return false;
    if (MoveFileExW(wide(beside.c_str()), wide(to.c_str()), MOVEFILE_REPLACE_EXISTING) != FALSE) return true;
    SetFileAttributesW(wide(beside.c_str()), FILE_ATTRIBUTE_NORMAL); // a read-only copy could not be deleted
    DeleteFileW(wide(beside.c_str()));
    return false;
}

} // namespace vs::project_resave::platform
