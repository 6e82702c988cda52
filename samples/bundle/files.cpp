#include "files.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <string_view>

namespace sample {

namespace fs = std::filesystem;
using vs::project_resave::wide_view;

namespace {

// Returns the folder that a drive is mapped to, on operating systems without drives. The host sets the
// variable before it loads a bundle.
std::string folder_of_drive(char16_t letter) {
    const char* const drives = std::getenv("VESTRA_DRIVES"); // "C=/data/c;N=/mnt/n"
    std::string_view rest = drives ? drives : "";
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

// Returns the entry with this name in any letter case; the unchanged name if there is none.
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

bool is_separator(char16_t c) { return c == u'\\' || c == u'/'; }

bool is_whole(wide_view path) { return path.starts_with(u"\\\\") || (path.size() > 2 && path[1] == u':'); }

// Returns the length of the folders that both paths begin with; 0 if these are not on one drive or server.
size_t common_folders(const wide_string& a, const wide_string& b) {
    const auto folded = [](char16_t c) { return c >= u'A' && c <= u'Z' ? char16_t(c | 0x20) : c; };
    size_t common = 0;
    for (size_t i = 0; i < std::min(a.size(), b.size()) && folded(a[i]) == folded(b[i]); ++i)
        if (is_separator(a[i])) common = i + 1;
    return common > 2 ? common : 0; // all paths of shares begin with two separators
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

wide_string folder_of(const wide_string& path) { return path.substr(0, path.find_last_of(u"\\/") + 1); }

wide_string relative_path(const wide_string& path, const wide_string& other) {
    const size_t common = common_folders(path, other);
    if (common == 0) return path;
    wide_string result;
    for (auto level = std::ranges::count_if(other.substr(common), is_separator); level > 0; --level)
        result += u"..\\";
    return result + path.substr(common);
}

wide_string whole_path(const wide_string& stored, const wide_string& other) {
    if (stored.empty() || is_whole(stored)) return stored;
    wide_string folder = folder_of(other);
    size_t rest = 0;
    for (; stored.compare(rest, 3, u"..\\") == 0 && !folder.empty(); rest += 3)
        folder = folder_of(folder.substr(0, folder.size() - 1));
    return folder + stored.substr(rest);
}

} // namespace sample
