// Paths on Windows: they need no mapping, only the prefix that lifts the limit on their length.

#include "platform/volumes.h"

#include <chrono>

#include "platform/text.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

wide_string full_path(const wide_string& path) {
    const DWORD needed = GetFullPathNameW(wide(path.c_str()), 0, nullptr, nullptr);
    if (needed == 0) return {};
    wide_string full(needed, u'\0');
    full.resize(GetFullPathNameW(wide(path.c_str()), needed, wide(full.data()), nullptr));
    return full;
}

wide_string system_path(const wide_string& path) {
    constexpr size_t limit = 240; // folders are limited to 248 characters, files to 260
    if (path.find(u'\0') != wide_string::npos) return {};
    if (path.starts_with(u"\\\\?\\")) return path;
    if (path.find(u':', 2) != wide_string::npos) return {}; // a stream within a file, which no listing shows
    const wide_string full = full_path(path);
    if (full.starts_with(u"\\\\.\\")) return {}; // a device: NUL, CON, COM1 in any folder
    if (path.size() < limit && full.size() < limit) return path;
    if (full.starts_with(u"\\\\")) return u"\\\\?\\UNC\\" + full.substr(2);
    return u"\\\\?\\" + full;
}

bool add_drive(std::string_view assignment, std::string& message) {
    message =
        "--drive cannot be used on Windows, which has its own drives: \"" + std::string(assignment) + "\"";
    return false;
}

bool check_drive_variable(std::string&) { return true; }

wide_string drive_path(std::string_view argument) {
    wide_string path = from_utf8(argument);
    const bool names_a_drive = path.size() > 1 && path[1] == u':';
    // A typed path with slashes is not in the bundle's form yet, even with a drive.
    const bool has_foreign_separators = path.find(u'/') != wide_string::npos;
    return names_a_drive && !has_foreign_separators ? path : full_path(path);
}

outcome set_current_folder(const wide_string& folder) {
    return outcome::of_call(SetCurrentDirectoryW(wide(folder.c_str())) != FALSE);
}

// The standard library cannot read a folder's time here.
std::filesystem::file_time_type folder_time(const wide_string& folder) {
    using ticks = std::chrono::duration<int64_t, std::ratio<1, 10'000'000>>;
    constexpr std::chrono::seconds from_1601_to_1970(11'644'473'600);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(wide(system_path(folder).c_str()), GetFileExInfoStandard, &data))
        return std::filesystem::file_time_type::min();
    const FILETIME& written = data.ftLastWriteTime;
    const ticks from_1601((int64_t{written.dwHighDateTime} << 32) | written.dwLowDateTime);
    return std::filesystem::file_time_type::clock::from_sys(
        std::chrono::sys_time<ticks>(from_1601 - from_1601_to_1970));
}

std::filesystem::path native_path(const wide_string& path) { return system_path(path); }

std::string native_text(const wide_string& path) { return to_utf8(path); }

} // namespace vs::project_resave::platform
