// The page itself, as HTML that needs nothing but itself: no network, no other file.
#pragma once

#include <string>

namespace vestra::command {

struct page_facts;

// Summary and problems can be read without scripts; the table of all files needs them.
std::string html_of(const page_facts& facts);

} // namespace vestra::command
