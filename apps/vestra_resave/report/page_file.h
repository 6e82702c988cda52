// Where the page about a result is written.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/problems.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

struct page_facts;

// Returns why no page may be written at the path that was typed: it has another extension than .html, its
// folder does not exist, it is a file of the loaded project, or `refuse_output` says so. The folder of
// `new_project`, which is empty where no project is made, need not exist yet.
std::optional<refusal> refuse_page(const std::string& typed, vs::project_resave::project_context& context,
                                   const wide_string& new_project);

// Writes the page in one step; an older file of the name is replaced, but none of the files that the page
// lists, nor one that would pass for a part of a data set among them. Returns what went wrong.
std::vector<problem> write_page(const std::string& typed, const page_facts& facts);

} // namespace vestra::command
