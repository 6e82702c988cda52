#include "files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace sample {

namespace fs = std::filesystem;

namespace {

// Returns the folder of a drive on systems without drives; the host sets the variable before it loads a
// bundle.
std::string folder_of_drive(char16_t letter) {
    const char* const told = std::getenv("VESTRA_DRIVES"); // "C=/data/c;N=/mnt/n"
    std::string_view rest = told ? told : "";
    while (!rest.empty()) {
        const size_t end = std::min(rest.find(';'), rest.size());
        const bool is_it = end > 2 && (rest[0] | 0x20) == (letter | 0x20) && rest[1] == '=';
        if (is_it) return std::string(rest.substr(2, end - 2));
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return {};
}

// Compares without regard to letter case, for English letters only.
bool same_name(const fs::path& a, const fs::path& b) {
    const std::string first = a.string(), second = b.string();
    const auto folded = [](char c) { return c >= 'A' && c <= 'Z' ? c | 0x20 : c; };
    return std::ranges::equal(first, second, {}, folded, folded);
}

// Returns the entry with this name in any letter case; the name unchanged if there is none.
fs::path entry_in(const fs::path& folder, const fs::path& name) {
    std::error_code failed;
    if (!fs::exists(folder / name, failed))
        for (const fs::directory_entry& entry : fs::directory_iterator(folder, failed))
            if (same_name(entry.path().filename(), name)) return entry.path();
    return folder / name;
}

fs::path native(wide_string path) {
    constexpr bool system_has_drives = fs::path::preferred_separator == '\\';
    if (system_has_drives || path.size() < 3) return path;
    std::ranges::replace(path, u'\\', u'/');
    fs::path result = folder_of_drive(path[0]);
    for (const fs::path& name : fs::path(path.substr(3))) result = entry_in(result, name);
    return result;
}

} // namespace

bool file_exists(const wide_string& path) {
    std::error_code failed;
    return fs::exists(native(path), failed);
}

bool copy_file(const wide_string& source, const wide_string& target) {
    std::error_code failed;
    return fs::copy_file(native(source), native(target), failed);
}

} // namespace sample
