#include "tests/support/tree_state.h"

#include <sstream>

#include "platform/volumes.h"
#include "tests/support/test_drives.h"

namespace vs::project_resave {

namespace fs = std::filesystem;

namespace {

std::string change(const entry_state& before, const entry_state& after) {
    if (before.is_folder != after.is_folder) return "of another kind: ";
    if (before.bytes != after.bytes) return "changed: ";
    return before.written != after.written ? "touched: " : "";
}

} // namespace

tree_state state_of(const fs::path& folder) {
    tree_state state;
    if (!fs::is_directory(folder)) return state;
    std::error_code empty; // an empty root has no listing on Windows
    for (fs::recursive_directory_iterator found(folder, empty), end; found != end; ++found) {
        const fs::directory_entry& entry = *found;
        if (test_drives::is_of_the_system(entry.path())) {
            found.disable_recursion_pending();
            continue;
        }
        entry_state& made = state[entry.path().lexically_relative(folder).generic_string()];
        made.is_folder = entry.is_directory();
        if (made.is_folder) continue;
        made.bytes = bytes_of(entry.path());
        const std::u8string path = entry.path().u8string();
        const std::string_view bytes(reinterpret_cast<const char*>(path.data()), path.size());
        made.written = platform::folder_time(platform::drive_path(bytes)); // finer than that of the library
    }
    return state;
}

std::string difference(const tree_state& before, const tree_state& after) {
    std::string lines;
    for (const auto& [path, state] : before) {
        const auto now = after.find(path);
        const std::string what = now == after.end() ? "gone: " : change(state, now->second);
        if (!what.empty()) lines += what + path + '\n';
    }
    for (const auto& [path, state] : after)
        if (!before.contains(path)) lines += "new: " + path + '\n';
    return lines;
}

std::string first_difference(const std::string& wanted, const std::string& found) {
    std::istringstream wanted_lines(wanted), found_lines(found);
    std::string one, other;
    for (int number = 1;; ++number) {
        const bool has_one = static_cast<bool>(std::getline(wanted_lines, one));
        const bool has_other = static_cast<bool>(std::getline(found_lines, other));
        if (!has_one && !has_other) return wanted == found ? "" : "the end of the last line";
        if (has_one != has_other || one != other)
            return std::to_string(number) + ": " + (has_one ? one : "(end)") + " | " +
                   (has_other ? other : "(end)");
    }
}

} // namespace vs::project_resave
