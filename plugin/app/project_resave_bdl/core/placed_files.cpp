#include "core/placed_files.h"

#include "core/paths.h"

namespace vs::project_resave {

void placed_files::add(const wide_string& old_path, const wide_string& new_path) {
    oldest_.try_emplace(path_key(old_path), entries_.size());
    entries_.push_back({old_path, new_path});
}

const placed_file* placed_files::find(const wide_string& source) const {
    const auto found = oldest_.find(path_key(source));
    return found == oldest_.end() ? nullptr : &entries_[found->second];
}

void placed_files::clear() {
    entries_.clear();
    oldest_.clear();
}

} // namespace vs::project_resave
