// The words of a line that a person says to a window, and what has changed in its answer.
#pragma once

#include <string>

namespace vestra::command {

// Takes the first word off the line, and the blanks behind it; quotes hold words together.
std::string take_word(std::string& line);
// Without the quotes around all of it.
std::string unquoted(const std::string& words);
// Takes a last word "on" or "off" off; on without either.
bool take_switch(std::string& words);

// The lines of a description that were not there before, each two blanks in.
std::string new_lines(const std::string& before, const std::string& now);

} // namespace vestra::command
