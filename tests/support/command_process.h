// Runs vestra-resave as a separate process on the drives of the test.
#pragma once

#include <filesystem>
#include <string>

namespace vs::project_resave {

// Files for its streams. Without `in` the input is empty, without `err` both outputs go to `out`.
struct command_streams {
    std::filesystem::path in, out, err;
};

// Returns the shell line that starts it in English. Arguments can be in '...' and contain spaces.
std::string command_line(const std::string& arguments, const command_streams& streams);

// Runs such a line. Returns the exit status of the command, or -1 if it did not exit normally.
int run_line(const std::string& line);

} // namespace vs::project_resave
