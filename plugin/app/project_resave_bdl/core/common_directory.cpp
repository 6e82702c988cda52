#include "core/common_directory.h"

#include <algorithm>

#include "core/paths.h"

namespace vs::project_resave {

namespace {

using pieces = std::vector<wide_string>;

pieces common_prefix(const std::vector<pieces>& paths) {
    pieces prefix = paths.front();
    for (const pieces& path : paths) {
        const auto parting = std::ranges::mismatch(prefix, path).in1;
        prefix.erase(parting, prefix.end());
    }
    return prefix;
}

} // namespace

void common_directory::add_path(const wide_string& path) {
    const wide_string drive = path_root(path);
    if (drive.empty()) return;
    pieces folder = path_split(path, path_separators, false);
    if (folder.size() > 1) folder.pop_back();
    drives[drive].paths.push_back(std::move(folder));
    computed = false;
}

void common_directory::compute() {
    computed = true;
    for (auto& [name, drive] : drives) drive.common.clear();
    for (auto& [name, drive] : drives) {
        if (drive.paths.empty()) continue;
        const pieces prefix = common_prefix(drive.paths);
        if (prefix.empty()) return;
        for (const wide_string& piece : prefix) drive.common = path_join(drive.common, piece);
    }
}

} // namespace vs::project_resave
