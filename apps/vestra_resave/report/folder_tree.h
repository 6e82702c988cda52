// The folders of a page's files, before or after: as a list that files point into, and as a tree with sums.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// The folders of files, each once, in the order in which they are met first.
class folder_list {
public:
    // Enters the folder of a file and returns its number.
    size_t add(const wide_string& file);
    // What all folders of the list are in; with its separator. Empty if they have nothing in common.
    std::string common_root() const;
    // The folders as the operating system names them, with a separator at the end, without `root` in front.
    std::vector<std::string> below(const std::string& root) const;

private:
    std::unordered_map<wide_string, size_t> numbers_; // by the folder as it is spelled
    std::vector<std::string> names_;
};

// A folder with what is in it and below it.
struct folder_node {
    std::string name; // the last piece of its path
    std::string path; // as in the list; empty for the root
    size_t files = 0, problems = 0;
    uint64_t bytes = 0;
    std::map<std::string, size_t> inside = {}; // numbers of nodes, by name; below the root also by whole path
};

class folder_tree {
public:
    // Counts a file of this folder, which has a separator at the end, in each folder that it is in.
    void add(const std::string& folder, uint64_t bytes, bool is_problem);
    // The root is the first; each folder comes after the one that it is in.
    const std::vector<folder_node>& nodes() const { return nodes_; }

    // As nested lists of HTML: the folder `root`, and then what is outside of it. Of very many folders those
    // closest to the root are written, and how many there are more.
    std::string html(const std::string& root) const;

private:
    using children = std::map<std::string, size_t>;
    static std::string html_of(const folder_node& node);
    std::string html_of(const children& inside, const std::vector<bool>& is_shown) const;

    std::vector<folder_node> nodes_{{{}, {}}};
    std::unordered_map<std::string, size_t> numbers_{{"", 0}}; // by path
};

} // namespace vestra::command
