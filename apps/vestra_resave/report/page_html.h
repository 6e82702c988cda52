// The page itself, as HTML that needs nothing but itself: no network, no other file.
#pragma once

#include <string>
#include <string_view>

namespace vestra::command {

struct page_facts;

// The text as HTML shows it, in content and in quoted attributes. Characters that are not allowed there, and
// those that would turn the direction of what follows, become U+FFFD.
std::string escaped(std::string_view utf8);
// JSON that can be put into a script element: nothing in it ends the element or a line.
std::string escaped_json(std::string_view json);

// Summary and problems can be read without scripts; the table of all files needs them.
std::string html_of(const page_facts& facts);

} // namespace vestra::command
