// The page as self-contained HTML: it uses no network and no other file.
#pragma once

#include <string>

namespace vestra::command {

struct page_facts;

// Returns the page as UTF-8. Summary and problems work without scripts; the table of all files needs them.
// Every text of the project is escaped, and a policy in the page allows only its own script. The whole page
// is built in memory.
std::string html_of(const page_facts& facts);

} // namespace vestra::command
