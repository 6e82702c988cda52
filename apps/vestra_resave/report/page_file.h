// Checks the path of the HTML report and writes it. Both are needed: the check before the run cannot know the
// names of the copies.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/problems.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

struct page_facts;

// Returns why no page can be written to the path `typed`: its extension is not .html, its folder does not
// exist, it is a file of the loaded project, or `refuse_output` refuses it. The folder of `new_project`,
// which can be empty, need not exist yet.
std::optional<refusal> refuse_page(const std::string& typed, vs::project_resave::project_context& context,
                                   const wide_string& new_project);

// Writes the page in one step to the current disk. Replaces an older page, but none of the files that the
// page lists and no file that would look like a part of a data set among them. Returns the errors; an older
// page is then unchanged.
std::vector<problem> write_page(const std::string& typed, const page_facts& facts);

} // namespace vestra::command
