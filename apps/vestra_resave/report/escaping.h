// Escapes texts of a project for use in a page.
#pragma once

#include <string>
#include <string_view>

namespace vestra::command {

// Escapes text for HTML content and quoted attributes. Characters that are not allowed there, and those that
// change the text direction, become U+FFFD.
std::string escaped(std::string_view utf8);
// Escapes one line of JSON for use in a script element, so that nothing in it ends the element or a line. Its
// texts have U+FFFD where `escaped` has it, so a script finds in the page what they name.
std::string escaped_json(std::string_view json);

} // namespace vestra::command
