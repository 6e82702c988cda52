// Sums up files by folder and prints the folders as nested HTML lists.
#include "apps/vestra_resave/report/folder_tree.h"

#include <algorithm>
#include <deque>

#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/report/escaping.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr std::string_view separators = "\\/";
// More folders than a browser can lay out quickly are of no use to a reader.
constexpr size_t most_shown = 2000; // folders of one tree
constexpr size_t deepest = 60;      // deeper files count in their parent at this depth

// A "\" in a name on a system that separates with "/" is rare; such a name is split too.
size_t end_of_piece(const std::string& path, size_t from) {
    const size_t end = path.find_first_of(separators, from);
    return end == std::string::npos ? path.size() : end + 1;
}

bool is_whole(const std::string& folder) {
    return separators.find(folder.front()) != std::string_view::npos || folder.find(':') == 1;
}

} // namespace

size_t folder_list::add(const wide_string& file) {
    const wide_string folder = path_head(file);
    const auto [row, is_new] = numbers_.try_emplace(folder, names_.size());
    if (is_new) {
        std::string name = printed(folder);
        if (!name.empty() && separators.find(name.back()) == std::string_view::npos)
            name += name.find('/') == std::string::npos ? '\\' : '/';
        names_.push_back(std::move(name));
    }
    return row->second;
}

std::string folder_list::common_root() const {
    if (names_.empty()) return {};
    std::string root = names_.front();
    for (const std::string& name : names_) {
        const auto end = std::ranges::mismatch(root, name).in1;
        root.erase(end, root.end());
        // Only whole names: "/data/ab/" and "/data/ac/" share "/data/".
        root.erase(root.find_last_of(separators) + 1);
    }
    return root;
}

std::vector<std::string> folder_list::below(const std::string& root) const {
    std::vector<std::string> names = names_;
    for (std::string& name : names)
        if (name.starts_with(root)) name.erase(0, root.size());
    return names;
}

void folder_tree::add(const std::string& folder, uint64_t bytes, bool is_problem) {
    size_t number = 0, depth = 0;
    for (size_t from = 0;; ++depth) {
        folder_node& node = nodes_[number];
        ++node.files;
        node.bytes += bytes;
        node.problems += is_problem ? 1 : 0;
        if (from >= folder.size() || depth == deepest) return;
        size_t end = end_of_piece(folder, from);
        if (from == 0) // the start of an absolute path: "/", or the two separators of a share
            while (end < folder.size() && folder.find_first_not_of(separators) >= end)
                end = end_of_piece(folder, end);
        const std::string path = folder.substr(0, end);
        const auto [row, is_new] = numbers_.try_emplace(path, nodes_.size());
        if (is_new) {
            const std::string name = folder.substr(from, end - from);
            node.inside.emplace(name, nodes_.size());
            // The name keeps its separator, so that a folder is shown as one.
            nodes_.push_back({name, path}); // `node` is invalid after this
        }
        number = row->second;
        from = end;
    }
}

std::string folder_tree::html(const std::string& root) const {
    std::vector<bool> is_shown(nodes_.size(), false);
    // Breadth first, so that the limit cuts off deep folders and not the last ones.
    std::deque<size_t> next{0};
    for (size_t count = 0; !next.empty() && count < most_shown; ++count) {
        is_shown[next.front()] = true;
        for (const auto& [name, number] : nodes_[next.front()].inside) next.push_back(number);
        next.pop_front();
    }
    // The root of the tree counts all files. The part shown under its name excludes the folders outside it,
    // which are listed on their own.
    folder_node top = nodes_.front();
    top.name = root;
    children outside;
    for (const auto& [name, number] : nodes_.front().inside) {
        if (!is_whole(name)) continue;
        outside.emplace(name, number);
        top.inside.erase(name);
        top.files -= nodes_[number].files;
        top.bytes -= nodes_[number].bytes;
        top.problems -= nodes_[number].problems;
    }
    std::string text = "<ul class=\"tree\">";
    if (top.files != 0) text += "<li>" + html_of(top) + html_of(top.inside, is_shown) + "</li>\n";
    for (const auto& [name, number] : outside)
        text += "<li>" + html_of(nodes_[number]) + html_of(nodes_[number].inside, is_shown) + "</li>\n";
    return text + "</ul>\n";
}

std::string folder_tree::html_of(const folder_node& node) {
    std::string text = "<div class=\"folder\" data-path=\"" + escaped(node.path) +
                       "\"><span class=\"name\">" + escaped(node.name) + "</span>";
    if (node.problems != 0) {
        const std::string count = std::to_string(node.problems);
        const std::string words = escaped(say("%1 with a problem", {count}));
        text += "<span class=\"badge\" role=\"img\" title=\"" + words + "\" aria-label=\"" + words + "\">" +
                count + "</span>";
    }
    return text + "<span class=\"count\">" + std::to_string(node.files) + "</span><span class=\"size\">" +
           escaped(size_text(node.bytes)) + "</span></div>";
}

std::string folder_tree::html_of(const children& inside, const std::vector<bool>& is_shown) const {
    if (inside.empty()) return {};
    std::string text = "\n<ul>";
    size_t hidden = 0;
    for (const auto& [name, number] : inside) {
        if (is_shown[number])
            text += "<li>" + html_of(nodes_[number]) + html_of(nodes_[number].inside, is_shown) + "</li>\n";
        else
            ++hidden;
    }
    if (hidden != 0)
        text +=
            "<li class=\"more\">" + escaped(say("and %1 more folders", {std::to_string(hidden)})) + "</li>";
    return text + "</ul>";
}

} // namespace vestra::command
