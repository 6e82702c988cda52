#include "apps/vestra_resave/folder_files.h"

#include <utility>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::folded;

folder_files::folder_files(const wide_string& folder) {
    for (auto& entry : platform::entries_or_none(platform::operating_system(), folder)) {
        if (entry.is_folder) continue;
        const wide_string name = folded(entry.name);
        for (size_t dot = name.find(u'.'); dot != wide_string::npos; dot = name.find(u'.', dot + 1))
            by_beginning_[name.substr(0, dot)].push_back(entry.name);
        spellings_.try_emplace(name, std::move(entry.name));
    }
}

const std::vector<wide_string>& folder_files::beginning_with(const wide_string& text) const {
    static const std::vector<wide_string> none;
    const auto row = by_beginning_.find(folded(text));
    return row == by_beginning_.end() ? none : row->second;
}

const wide_string* folder_files::find(const wide_string& name) const {
    const auto row = spellings_.find(folded(name));
    return row == spellings_.end() ? nullptr : &row->second;
}

const folder_files& listed_folders::files_of(const wide_string& folder) {
    return folders_.try_emplace(path_key(folder), folder).first->second;
}

} // namespace vestra::command
