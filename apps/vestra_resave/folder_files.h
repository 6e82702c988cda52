// The files in the folders of sources, for finding files next to another one.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// The names of the files in one folder when it was listed; later changes are not noticed. Look-ups ignore
// letter case, take constant time, and never return folders.
class folder_files {
public:
    // Lists the folder on the real disk, even in a dry run, because it looks for files of the source and not
    // for copies. Empty if it cannot be read.
    explicit folder_files(const wide_string& folder);

    // Returns why the folder could not be listed; success if it does not exist.
    const vs::project_resave::platform::outcome& listed() const { return listed_; }
    // Returns the names that begin with this text and a dot.
    const std::vector<wide_string>& beginning_with(const wide_string& text) const;
    // Returns those of them that belong to the file `name`, where `text` is its name or stem. Of names that
    // differ only in letter case, returns the one that begins exactly with the text; if the file itself has
    // such a twin, no others.
    std::vector<wide_string> belonging_to(const wide_string& name, const wide_string& text) const;
    // Returns the spelling of a name on the disk, preferring the exact one; null if there is no such file.
    const wide_string* find(const wide_string& name) const;
    // True if several files have this name when letter case is ignored.
    bool has_twin(const wide_string& name) const;

private:
    std::unordered_map<wide_string, std::vector<wide_string>> by_beginning_;
    std::unordered_map<wide_string, std::vector<wide_string>> spellings_; // by the folded name
    vs::project_resave::platform::outcome listed_;
};

// Lists each folder once, when it is first asked for. References that it returns are valid as long as this
// object; so are pointers to names in them.
class listed_folders {
public:
    const folder_files& files_of(const wide_string& folder);

private:
    std::unordered_map<wide_string, folder_files> folders_; // by path key
};

} // namespace vestra::command
