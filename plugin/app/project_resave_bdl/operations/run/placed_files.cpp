// The files that a run has placed, and the top folder that all its files share.

#include "operations/run/placed_files.h"

#include <algorithm>

#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

size_t hash_of(const wide_string& path) { return std::hash<wide_string>()(path_key(path)); }

// Two files in one folder may differ only in the letter case of their names.
bool is_one_file(const wide_string& first, const wide_string& second) {
    if (first == second) return true;
    if (!path_same(first, second)) return false;
    return path_normalise(first) == path_normalise(second) ||
           platform::current_system().same_file(first, second);
}

} // namespace

void placed_files::add(const wide_string& old_path, const wide_string& new_path) {
    const size_t hash = hash_of(old_path);
    const bool is_first = find(old_path, hash) == nullptr;
    oldest_.make_room();
    entries_.push_back({old_path, new_path});
    if (is_first) oldest_.add(hash, static_cast<uint32_t>(entries_.size() - 1));
}

const placed_file* placed_files::find(const wide_string& source) const {
    return find(source, hash_of(source));
}

const placed_file* placed_files::find(const wide_string& source, size_t hash) const {
    const uint32_t row =
        oldest_.find(hash, [&](uint32_t number) { return is_one_file(entries_[number].old_path, source); });
    return row != row_index::none ? &entries_[row] : nullptr;
}

void placed_files::clear() {
    entries_.clear();
    oldest_.clear();
}

void common_directory::add_path(const wide_string& path) {
    const wide_string drive = path_root(path);
    if (drive.empty()) return;
    std::vector<wide_string> folder = path_split(path, path_separators, false);
    // The last piece is the file name.
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
        // Kept as users know it: a drive whose paths share nothing ends the computation, also for the other
        // drives.
        if (drive.counted == 0) continue;
        if (drive.shared.empty()) return;
        for (const wide_string& piece : drive.shared) drive.common = path_join(drive.common, piece);
    }
}

} // namespace vs::project_resave
