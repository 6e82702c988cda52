#include "operations/run/path_files.h"

#include <algorithm>

#include "platform/path_text.h"

namespace vs::project_resave {

bool path_exists(const wide_string& path) {
    return platform::current_system().kind_of(path) != platform::entry_kind::none;
}

bool append_if_exists(const wide_string& path, std::vector<found_file>& out) {
    const platform::entry_status status = platform::current_system().status_of(path);
    if (status.kind == platform::entry_kind::none) return false;
    out.emplace_back(path, status);
    return true;
}

platform::outcome create_folders(const wide_string& path) {
    platform::system& files = platform::current_system();
    const platform::entry_kind kind = files.kind_of(path);
    if (kind == platform::entry_kind::folder) return {};
    if (kind == platform::entry_kind::file) return platform::failure::taken;

    wide_string level = path.substr(0, path_fixed_length(path));
    for (const wide_string& piece : path_split(wide_view(path).substr(level.size()), path_separators, true)) {
        level.append(piece).push_back(u'\\');
        if (path_exists(level)) continue;
        const platform::outcome made = files.create_folder(level);
        if (!made && !path_exists(level)) return made; // another process may make it meanwhile
    }
    return path_exists(level) ? platform::outcome() : platform::failure::missing;
}

bool true_case_path(const wide_string& path, wide_string& result) {
    result.clear();
    wide_string copy = path;
    std::replace(copy.begin(), copy.end(), u'/', u'\\');
    if (copy.empty() || path_is_relative(copy) || !path_exists(copy)) return false;
    const wide_string drive = path_root(copy);
    if (drive.empty()) return false;

    wide_string spelled = drive;
    for (const wide_string& component : path_split(copy.substr(drive.size()), u"\\", true)) {
        wide_string spelling = component;
        platform::current_system().true_name(spelled + u"\\", component, spelling);
        spelled += u"\\" + spelling;
    }
    result = spelled;
    return true;
}

wide_string unique_path(const wide_string& path) {
    wide_string candidate = path;
    for (uint32_t n = 1; path_exists(candidate); ++n) candidate = path_add_to_stem(path, u"_" + decimal(n));
    return candidate;
}

namespace {

// Removes a file, an empty folder, or a link, which goes without what it leads to.
platform::outcome remove_alone(const wide_string& path) {
    platform::system& files = platform::current_system();
    const platform::outcome deleted = files.delete_file(path);
    if (deleted) return deleted;
    const platform::outcome removed = files.remove_folder(path);
    return removed || files.kind_of(path) == platform::entry_kind::folder ? removed : deleted;
}

} // namespace

platform::outcome remove_tree(const wide_string& path) {
    if (remove_alone(path)) return {};
    platform::outcome first;
    const auto entries = platform::entries_or_none(platform::current_system(), path);
    const bool has_separator = !path.empty() && is_separator(path.back());
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const wide_string inner = path + (has_separator ? u"" : u"\\") + entry->name;
        // A link that cannot be removed is not entered either.
        const platform::outcome removed = entry->is_link ? remove_alone(inner) : remove_tree(inner);
        if (!removed && first) first = removed;
    }
    const platform::outcome removed = platform::current_system().remove_folder(path);
    return removed || first ? removed : first;
}

} // namespace vs::project_resave
