// The page as self-contained HTML: it uses no network and no other file.
#pragma once

#include <string>

namespace vestra::command {

struct page_facts;

// Returns the page. Summary and problems work without scripts; the table of all files needs them.
std::string html_of(const page_facts& facts);

} // namespace vestra::command
