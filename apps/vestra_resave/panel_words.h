// Parses command lines of `panel`, and compares two printed windows.
#pragma once

#include <string>

namespace vestra::command {

// Removes the first word and the spaces after it from the line. Quotes keep words together.
std::string take_word(std::string& line);
// Returns the text without enclosing quotes; other text, also with a quote at one end only, is unchanged.
std::string unquoted(const std::string& words);
// Removes a last word "on" or "off". Returns true for "on" and if there is neither.
bool take_switch(std::string& words);

// Returns the lines of `now` that are not in `before`, each indented by two spaces. A line that occurs more
// often than before is returned for each further time.
std::string new_lines(const std::string& before, const std::string& now);

} // namespace vestra::command
