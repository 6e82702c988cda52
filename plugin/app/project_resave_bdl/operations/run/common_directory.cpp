#include "operations/run/common_directory.h"

#include <algorithm>

#include "platform/path_text.h"

namespace vs::project_resave {

void common_directory::add_path(const wide_string& path) {
    const wide_string drive = path_root(path);
    if (drive.empty()) return;
    std::vector<wide_string> folder = path_split(path, path_separators, false);
    if (folder.size() > 1) folder.pop_back();
    auto& [shared, counted, common] = drives[drive];
    if (counted++ == 0)
        shared = std::move(folder);
    else
        shared.erase(std::ranges::mismatch(shared, folder).in1, shared.end());
    computed = false;
}

void common_directory::compute() {
    computed = true;
    for (auto& [name, drive] : drives) drive.common.clear();
    for (auto& [name, drive] : drives) {
        if (drive.counted == 0) continue;
        if (drive.shared.empty()) return;
        for (const wide_string& piece : drive.shared) drive.common = path_join(drive.common, piece);
    }
}

} // namespace vs::project_resave
