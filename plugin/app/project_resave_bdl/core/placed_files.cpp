#include "core/placed_files.h"

#include "core/paths.h"

namespace vs::project_resave {

namespace {

size_t hash_of(const wide_string& path) { return std::hash<wide_string>()(path_key(path)); }

} // namespace

void placed_files::add(const wide_string& old_path, const wide_string& new_path) {
    if (find(old_path) == nullptr) oldest_.emplace(hash_of(old_path), static_cast<uint32_t>(entries_.size()));
    entries_.push_back({old_path, new_path});
}

const placed_file* placed_files::find(const wide_string& source) const {
    const auto [first, last] = oldest_.equal_range(hash_of(source));
    for (auto row = first; row != last; ++row)
        if (path_same(entries_[row->second].old_path, source)) return &entries_[row->second];
    return nullptr;
}

void placed_files::clear() {
    entries_.clear();
    oldest_.clear();
}

} // namespace vs::project_resave
