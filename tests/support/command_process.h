// vestra-resave as a process of its own, on the drives of the test.
#pragma once

#include <filesystem>
#include <string>

namespace vs::project_resave {

// Files that its streams are. Without `in` there is nothing to read, without `err` both outputs go to `out`.
struct command_streams {
    std::filesystem::path in, out, err;
};

// The line that starts it, in English, for the system's shell. Arguments may stand in '...' and hold blanks.
std::string command_line(const std::string& arguments, const command_streams& streams);

// Runs such a line; the exit code of the command, or -1 if it did not end by itself.
int run_line(const std::string& line);

} // namespace vs::project_resave
