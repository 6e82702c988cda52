// Looks up the files of a folder by their name or the beginning of it.
#include "apps/vestra_resave/folder_files.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::folded;

folder_files::folder_files(const wide_string& folder) {
    std::vector<platform::folder_entry> entries;
    listed_ = platform::operating_system().list(folder, entries);
    // A folder that does not exist has no files; that is an answer and not a failure.
    if (listed_.is(platform::failure::missing)) listed_ = {};
    for (auto& entry : entries) {
        if (entry.is_folder) continue;
        const wide_string name = folded(entry.name);
        // Entered for each dot, so that every beginning is found in one look-up.
        for (size_t dot = name.find(u'.'); dot != wide_string::npos; dot = name.find(u'.', dot + 1))
            by_beginning_[name.substr(0, dot)].push_back(entry.name);
        spellings_[name].push_back(std::move(entry.name));
    }
}

const std::vector<wide_string>& folder_files::beginning_with(const wide_string& text) const {
    static const std::vector<wide_string> none;
    const auto row = by_beginning_.find(folded(text));
    return row == by_beginning_.end() ? none : row->second;
}

const wide_string* folder_files::find(const wide_string& name) const {
    const auto row = spellings_.find(folded(name));
    if (row == spellings_.end()) return nullptr;
    const auto exact = std::ranges::find(row->second, name);
    return exact == row->second.end() ? &row->second.front() : &*exact;
}

bool folder_files::has_twin(const wide_string& name) const {
    const auto row = spellings_.find(folded(name));
    return row != spellings_.end() && row->second.size() > 1;
}

std::vector<wide_string> folder_files::belonging_to(const wide_string& name, const wide_string& text) const {
    // On a disk that distinguishes letter case "a.tif" and "A.TIF" are two files, each with its own
    // companions.
    const bool only_exact = has_twin(name);
    std::vector<wide_string> found;
    std::unordered_map<wide_string, size_t> places; // in `found`, of names that have a twin
    for (const wide_string& each : beginning_with(text)) {
        const bool is_exact = each.starts_with(text);
        if (only_exact && !is_exact) continue;
        if (!has_twin(each)) {
            found.push_back(each);
            continue;
        }
        const auto [place, is_first] = places.try_emplace(folded(each), found.size());
        if (is_first)
            found.push_back(each);
        else if (is_exact)
            found[place->second] = each;
    }
    return found;
}

const folder_files& listed_folders::files_of(const wide_string& folder) {
    return folders_.try_emplace(path_key(folder), folder).first->second;
}

} // namespace vestra::command
