// Resolves the names of --only and --deselect to elements and applies them to the selection.
#include "apps/vestra_resave/selection.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::folded;

namespace {

struct place {
    const element* found;
    wide_string holders; // captions of its parents
};

// True if the text matches the pattern, in which "*" matches any characters and "?" one.
bool fits(wide_view text, wide_view pattern) {
    // Without recursion: after a mismatch the last "*" takes one character more. Earlier ones need not be
    // tried again, so the cost is at most the product of the lengths.
    size_t at = 0, in = 0, star = wide_view::npos, behind = 0;
    while (at < text.size()) {
        if (in < pattern.size() && pattern[in] == u'*') {
            star = in++;
            behind = at;
        } else if (in < pattern.size() && (pattern[in] == u'?' || pattern[in] == text[at])) {
            ++in, ++at;
        } else if (star != wide_view::npos) {
            in = star + 1;
            at = ++behind;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of(u'*', in) == wide_view::npos;
}

// All elements of the project, for finding those that a name on the command line means.
class directory {
public:
    explicit directory(const std::vector<element>& elements) {
        for (const element& each : elements) enter(each, {}, {});
    }
    // Returns the elements that the name means; several only for a keyword or a pattern. If there are none,
    // if a caption is ambiguous, or if none of them can be left out, returns nothing and adds a message.
    std::vector<const element*> find(const std::string& name, std::vector<std::string>& complaints) const;

private:
    void enter(const element& each, const wide_string& holders, const wide_string& group);
    std::vector<const element*> matching(const wide_string& word) const;
    const element* one_of(const std::string& name, const std::vector<place>& candidates,
                          std::vector<std::string>& complaints) const;

    std::vector<const element*> all_;
    std::unordered_map<wide_string, std::vector<place>> by_name_; // uuid or caption
    std::unordered_map<wide_string, std::vector<const element*>> by_type_, by_group_;
};

void directory::enter(const element& each, const wide_string& holders, const wide_string& group) {
    all_.push_back(&each);
    if (!each.uuid.empty()) {
        by_name_[folded(each.uuid)].push_back({&each, holders});
        // An element whose caption is its uuid is entered once, so that messages count it once.
        if (folded(each.caption) != folded(each.uuid))
            by_name_[folded(each.caption)].push_back({&each, holders});
    }
    if (!each.type.empty()) by_type_[folded(each.type)].push_back(&each);
    if (!group.empty()) by_group_[group].push_back(&each);
    const wide_string below = (holders.empty() ? holders : holders + u" / ") + each.caption;
    for (const element& child : each.children)
        // An element belongs to the nearest group; the caption of an outer group does not select it.
        enter(child, below, each.kind == "group" ? folded(each.caption) : group);
}

// Returns the elements that a keyword such as "type:" selects.
std::vector<const element*> directory::matching(const wide_string& word) const {
    const auto listed_in = [&](const auto& rows, wide_view prefix) {
        const auto row = rows.find(word.substr(prefix.size()));
        return row == rows.end() ? std::vector<const element*>() : row->second;
    };
    if (word.starts_with(u"type:")) return listed_in(by_type_, u"type:");
    if (word.starts_with(u"group:")) return listed_in(by_group_, u"group:");
    const auto has_path_like = [&](const element& each) {
        const wide_string path = folded(each.file);
        if (path.empty()) return false;
        return fits(path, word) || fits(path_file_name(path), word) ||
               fits(folded(platform::from_utf8(native_form(each.file))), word);
    };
    std::vector<const element*> found;
    std::ranges::copy_if(all_, std::back_inserter(found), [&](const element* each) {
        return word == u"missing" ? each->exists == false : has_path_like(*each);
    });
    return found;
}

const element* directory::one_of(const std::string& name, const std::vector<place>& candidates,
                                 std::vector<std::string>& complaints) const {
    const element* const first = candidates.front().found;
    // The same element can be listed several times.
    if (std::ranges::all_of(candidates, [&](const place& other) { return other.found->uuid == first->uuid; }))
        return first;
    complaints.push_back(
        say("\"%1\" matches %2 elements; give the uuid of one", {name, std::to_string(candidates.size())}));
    for (const place& candidate : candidates)
        complaints.push_back(say("\"%1\" could be %2: %3 in %4",
                                 {name, one_line(candidate.found->uuid), say_known(candidate.found->kind),
                                  one_line(candidate.holders)}));
    return nullptr;
}

std::vector<const element*> directory::find(const std::string& name,
                                            std::vector<std::string>& complaints) const {
    const wide_string word = folded(platform::from_utf8(name));
    std::vector<const element*> found;
    if (const auto row = by_name_.find(word); row != by_name_.end()) {
        const element* const one = one_of(name, row->second, complaints);
        if (!one) return {};
        found = {one};
    } else {
        found = matching(word);
    }
    if (found.empty()) complaints.push_back(say("no element matches \"%1\"", {name}));
    // A pattern may also match elements that cannot be left out, as long as it matches another one.
    if (found.empty() || std::ranges::any_of(found, &element::selectable)) return found;
    complaints.push_back(say("\"%1\" cannot be left out or kept by itself: %2 \"%3\"",
                             {name, say_known(found.front()->kind), one_line(found.front()->caption)}));
    return {};
}

void leave_out(const element& each, selection_register& selection) {
    if (each.selectable) selection.set_selected(each.uuid, false);
    for (const element& child : each.children) leave_out(child, selection);
}

// Leaves out the elements that neither are wanted nor contain a wanted one; everything inside a wanted
// element stays. Returns true if the element or any of its descendants is wanted.
bool keep_only(const element& each, const std::unordered_set<const element*>& wanted,
               selection_register& selection) {
    if (wanted.contains(&each)) return true;
    bool holds_wanted = false;
    for (const element& child : each.children)
        if (keep_only(child, wanted, selection)) holds_wanted = true;
    if (!holds_wanted && each.selectable) selection.set_selected(each.uuid, false);
    return holds_wanted;
}

// True if the element or any of its descendants is selectable and selected.
bool is_any_selected(const element& each, const selection_register& selection) {
    return (each.selectable && selection.is_selected(each.uuid)) ||
           std::ranges::any_of(each.children,
                               [&](const element& child) { return is_any_selected(child, selection); });
}

} // namespace

std::vector<std::string> apply(const selection_request& request, const std::vector<element>& elements,
                               selection_register& selection) {
    for (const wide_string& uuid : request.left_out) selection.set_selected(uuid, false);
    if (request.deselect.empty() && request.only.empty()) return {};
    const directory names(elements);
    std::vector<std::string> complaints;
    std::vector<const element*> unwanted;
    std::unordered_set<const element*> wanted;
    for (const std::string& name : request.deselect)
        for (const element* each : names.find(name, complaints)) unwanted.push_back(each);
    for (const std::string& name : request.only)
        for (const element* each : names.find(name, complaints)) wanted.insert(each);
    if (!complaints.empty()) return complaints;
    if (!wanted.empty())
        for (const element& each : elements) keep_only(each, wanted, selection);
    for (const element* each : unwanted) leave_out(*each, selection);
    // With --only, the parent of a named element stays selected even if --deselect leaves the element out.
    // Therefore only the elements named by --only are checked.
    const bool is_any_left =
        wanted.empty()
            ? std::ranges::any_of(elements,
                                  [&](const element& each) { return is_any_selected(each, selection); })
            : std::ranges::any_of(wanted,
                                  [&](const element* each) { return is_any_selected(*each, selection); });
    if (!is_any_left) complaints.push_back(say("no elements are left to resave"));
    return complaints;
}

} // namespace vestra::command
