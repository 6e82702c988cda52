// The content of a folder at one moment, for comparing it with another moment, and comparison of long texts.
#pragma once

#include <filesystem>
#include <map>
#include <string>

namespace vs::project_resave {

struct entry_state {
    std::string bytes;                       // of a file
    std::filesystem::file_time_type written; // of a file; unspecified for a folder
    bool is_folder = false;
};

// All entries below a native folder by their relative path with "/"; empty if there is no such folder.
using tree_state = std::map<std::string, entry_state>;
tree_state state_of(const std::filesystem::path& folder);

// Returns a line for each entry that was added, removed or changed in bytes or time; empty if there is none.
std::string difference(const tree_state& before, const tree_state& after);

// Returns the number of the first line in which two texts differ, and the line of either; empty if they are
// equal.
std::string first_difference(const std::string& wanted, const std::string& found);

} // namespace vs::project_resave
