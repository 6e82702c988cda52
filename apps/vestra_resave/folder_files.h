// Which files are in the folders of sources, for whoever looks what lies next to one.
#pragma once

#include <unordered_map>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// The names of the files of one folder, as it was listed. Looked up in any letter case.
class folder_files {
public:
    // Lists the folder of the real disk, also in a dry run. Empty for one that cannot be read.
    explicit folder_files(const wide_string& folder);

    // Why the folder could not be listed; success for one that does not exist.
    const vs::project_resave::platform::outcome& listed() const { return listed_; }
    // Those that begin with this text and a dot.
    const std::vector<wide_string>& beginning_with(const wide_string& text) const;
    // Those of them that belong to the file of this name, whose name or stem the text is. Of names that
    // differ in letter case alone the one that begins exactly so; where the file itself has such a twin, no
    // others.
    std::vector<wide_string> belonging_to(const wide_string& name, const wide_string& text) const;
    // The spelling of a name, the very one if there is a choice; null if there is no such file.
    const wide_string* find(const wide_string& name) const;
    // True if the names of several files differ from this one in letter case alone, or not at all.
    bool has_twin(const wide_string& name) const;

private:
    std::unordered_map<wide_string, std::vector<wide_string>> by_beginning_;
    std::unordered_map<wide_string, std::vector<wide_string>> spellings_; // by the folded name
    vs::project_resave::platform::outcome listed_;
};

// Lists each folder once. What it returns is valid as long as this object.
class listed_folders {
public:
    const folder_files& files_of(const wide_string& folder);

private:
    std::unordered_map<wide_string, folder_files> folders_; // by path key
};

} // namespace vestra::command
