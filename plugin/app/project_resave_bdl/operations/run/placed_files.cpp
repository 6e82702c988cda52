#include "operations/run/placed_files.h"

#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

size_t hash_of(const wide_string& path) { return std::hash<wide_string>()(path_key(path)); }

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
    const uint32_t row = oldest_.find(
        hash, [&](uint32_t candidate) { return path_same(entries_[candidate].old_path, source); });
    return row != row_index::none ? &entries_[row] : nullptr;
}

void placed_files::clear() {
    entries_.clear();
    oldest_.clear();
}

} // namespace vs::project_resave
