// Texts of a project, put into a page so that they are nothing but text there.
#pragma once

#include <string>
#include <string_view>

namespace vestra::command {

// The text as HTML shows it, in content and in quoted attributes. Characters that are not allowed there, and
// those that would turn the direction of what follows, become U+FFFD.
std::string escaped(std::string_view utf8);
// JSON of one line that can be put into a script element: nothing in it ends the element or a line. Its texts
// have U+FFFD where `escaped` has it, so a script finds in the page what they name.
std::string escaped_json(std::string_view json);

} // namespace vestra::command
