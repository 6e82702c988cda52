// Finds out what another bundle created while it copied: the names in a folder before the copy are compared
// with the names after it.

#include "operations/run/made_files.h"

#include "platform/system.h"

namespace vs::project_resave {

void made_files::note_folder(const wide_string& folder) {
    const wide_string key = path_key(folder);
    if (noted_.contains(key)) return;
    std::vector<platform::folder_entry> entries;
    const platform::outcome listed = platform::current_system().list(path_with_separator(folder), entries);
    // Without knowing what was there before, nothing in the folder counts as new.
    if (!listed && !listed.is(platform::failure::missing)) return;
    auto& names = noted_[key];
    for (const platform::folder_entry& entry : entries) names.insert(path_key(path_join(folder, entry.name)));
}

bool made_files::is_new(const wide_string& path) const {
    for (wide_string key = path_key(path), folder; !key.empty(); key = folder) {
        folder = path_key(path_head(key));
        if (folder == key) return false;
        if (const auto noted = noted_.find(folder); noted != noted_.end())
            return !noted->second.contains(key);
    }
    return false;
}

} // namespace vs::project_resave
