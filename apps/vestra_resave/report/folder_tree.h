// The folders of a page's files, before or after: a list that file rows refer to, and a tree with sums.
#pragma once

#include <map>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// The distinct folders of files, in the order of their first occurrence.
class folder_list {
public:
    // Adds the folder of a file and returns its index.
    size_t add(const wide_string& file);
    // Returns the common parent of all folders with its separator; empty if there is none. Names are compared
    // with their letter case.
    std::string common_root() const;
    // Returns the folders in the form of the operating system with a separator at the end, without the
    // leading `root`, in the order of their indexes. A folder outside `root` stays absolute.
    std::vector<std::string> below(const std::string& root) const;

private:
    std::unordered_map<wide_string, size_t> numbers_; // by the folder as spelled
    std::vector<std::string> names_;
};

// A folder with the sums of everything below it.
struct folder_node {
    std::string name; // the last part of its path
    std::string path; // as in the list; empty for the root
    size_t files = 0, problems = 0;
    uint64_t bytes = 0;
    std::map<std::string, size_t> inside = {}; // indexes of nodes by name; for the root also by absolute path
};

// A tree of folders with the number, size and problems of the files below each. Folders deeper than 60 levels
// count in their parent at that level, which limits how deep the lists are nested.
class folder_tree {
public:
    // Counts a file of this folder, which ends with a separator, in the folder and all its parents. The path
    // is relative to the root of the tree, empty for the root itself; an absolute one is outside it.
    void add(const std::string& folder, uint64_t bytes, bool is_problem);
    // The root comes first; each folder comes after its parent.
    const std::vector<folder_node>& nodes() const { return nodes_; }

    // Returns nested HTML lists: the folder `root`, followed by folders outside it. If there are too many,
    // those closest to the root are listed with the number of the others.
    std::string html(const std::string& root) const;

private:
    using children = std::map<std::string, size_t>;
    static std::string html_of(const folder_node& node);
    std::string html_of(const children& inside, const std::vector<bool>& is_shown) const;

    std::vector<folder_node> nodes_{{{}, {}}};
    std::unordered_map<std::string, size_t> numbers_{{"", 0}}; // by path
};

} // namespace vestra::command
