// The files of a page, as its script reads them and as its pictures and folders sum them up.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/report/folder_tree.h"
#include "apps/vestra_resave/report/page_facts.h"

namespace vestra::command {

// A kind of files or a folder, with what it comes to.
struct sized_group {
    std::string name;
    uint64_t bytes = 0;
    size_t files = 0;
    size_t number = 0;    // of a type, as the script has it
    bool is_rest = false; // several that are shown as one
};

struct page_data {
    std::string json; // see page.js; not escaped yet
    std::string before_root, after_root;
    folder_tree before, after;
    // Of the files that are in the new project, largest first.
    std::vector<sized_group> types, folders;
};

page_data data_of(const page_facts& facts);

// The largest of these as bars with their sizes, and the others as one, in SVG. `attribute` marks what a bar
// stands for: "data-type" with the number, or "data-folder" with the name.
std::string bars_of(const std::vector<sized_group>& groups, const std::string& attribute);

} // namespace vestra::command
