#include "platform/volumes.h"

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
    constexpr size_t limit = 240; // folders have less room than the 260 of files
    if (path.find(u'\0') != wide_string::npos) return {};
    if (path.starts_with(u"\\\\?\\")) return path;
    const wide_string full = full_path(path);
    if (full.starts_with(u"\\\\.\\")) return {}; // a device: NUL, CON, COM1 in any folder
    if (path.size() < limit) return path;
    if (full.starts_with(u"\\\\")) return u"\\\\?\\UNC\\" + full.substr(2);
    return u"\\\\?\\" + full;
}

bool add_drive(std::string_view, std::string& message) {
    message = "drives belong to the system here and cannot be added";
    return false;
}

wide_string drive_path(std::string_view argument) {
    wide_string path = from_utf8(argument);
    const bool names_a_drive = path.size() > 1 && path[1] == u':';
    const bool has_foreign_separators = path.find(u'/') != wide_string::npos;
    return names_a_drive && !has_foreign_separators ? path : full_path(path);
}

bool set_current_folder(const wide_string& folder) {
    return SetCurrentDirectoryW(wide(folder.c_str())) != FALSE;
}

std::filesystem::path native_path(const wide_string& path) { return system_path(path); }

} // namespace vs::project_resave::platform
