// What a folder holds at one moment, to be compared with another moment.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace vs::project_resave {

struct entry_state {
    std::string bytes;                       // of a file
    std::filesystem::file_time_type written; // of a file; that of a folder says nothing here
    bool is_folder = false;
};

// All entries below a native folder, by their path below it with "/"; empty if there is no such folder.
using tree_state = std::map<std::string, entry_state>;
tree_state state_of(const std::filesystem::path& folder);

// A line for each entry that is new, gone, changed in its bytes or touched in its time; empty if none is.
std::string difference(const tree_state& before, const tree_state& after);

} // namespace vs::project_resave
