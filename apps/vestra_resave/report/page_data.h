// The files of a page: rows for its script, sums for its pictures and folder trees.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/report/folder_tree.h"
#include "apps/vestra_resave/report/page_facts.h"

namespace vestra::command {

// The sums of a type of files or of a folder. Files without a known size count as 0 bytes.
struct sized_group {
    std::string name;
    uint64_t bytes = 0;
    size_t files = 0;
    size_t number = 0;    // index of a type in the script's list
    bool is_rest = false; // several groups combined
};

// Everything on a page that depends on the list of files.
struct page_data {
    // The data block of the page, which page.js describes. Not escaped yet.
    std::string json;
    // The folder that all sources share, and that of the project. Other folders are relative to them if they
    // are inside.
    std::string before_root, after_root;
    folder_tree before, after;
    // Files in the new project, largest first.
    std::vector<sized_group> types, folders;
};

// Computes the data of a page. Texts for the script are in the current language.
page_data data_of(const page_facts& facts);

// Returns the largest groups as bars with their sizes in SVG, and the others as one bar. `groups` are ordered
// by size. `attribute` identifies a bar: "data-type" with the index or "data-folder" with the name; choosing
// a bar filters the table by it.
std::string bars_of(const std::vector<sized_group>& groups, const std::string& attribute);

} // namespace vestra::command
