#include "operations/run/path_files.h"

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

bool create_folders(const wide_string& path) {
    platform::system& files = platform::current_system();
    const platform::entry_kind kind = files.kind_of(path);
    if (kind != platform::entry_kind::none) return kind == platform::entry_kind::folder;

    wide_string level = path.substr(0, path_fixed_length(path));
    for (const wide_string& piece : path_split(wide_view(path).substr(level.size()), path_separators, true)) {
        level.append(piece).push_back(u'\\');
        // Another process may make it meanwhile.
        if (!path_exists(level) && !files.create_folder(level) && !path_exists(level)) return false;
    }
    return path_exists(level);
}

wide_string unique_path(const wide_string& path) {
    wide_string candidate = path;
    for (uint32_t n = 1; path_exists(candidate); ++n) candidate = path_add_to_stem(path, u"_" + decimal(n));
    return candidate;
}

namespace {

// A file, an empty folder, or a link, which goes without what it leads to.
bool remove_alone(const wide_string& path) {
    platform::system& files = platform::current_system();
    return files.delete_file(path) || files.remove_folder(path);
}

} // namespace

bool remove_tree(const wide_string& path) {
    if (remove_alone(path)) return true;
    const auto entries = platform::entries_or_none(platform::current_system(), path);
    const bool has_separator = !path.empty() && is_separator(path.back());
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const wide_string inner = path + (has_separator ? u"" : u"\\") + entry->name;
        if (entry->is_link) // one that cannot be removed is not entered either
            remove_alone(inner);
        else
            remove_tree(inner);
    }
    return bool(platform::current_system().remove_folder(path));
}

} // namespace vs::project_resave
