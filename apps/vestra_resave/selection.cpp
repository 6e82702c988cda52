#include "apps/vestra_resave/selection.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/resave_report.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// All selectable elements by what a person may call them.
class directory {
public:
    explicit directory(const std::vector<element>& elements) {
        for (const element& each : elements) enter(each, {});
    }
    // The one element of this name; else null, with a line for the person.
    const element* find(const std::string& name, std::vector<std::string>& complaints) const;

private:
    struct place {
        const element* found;
        wide_string holders; // captions of what it is in
    };
    void enter(const element& each, const wide_string& holders) {
        if (each.selectable) {
            by_name[platform::folded(each.uuid)].push_back({&each, holders});
            if (platform::folded(each.caption) != platform::folded(each.uuid))
                by_name[platform::folded(each.caption)].push_back({&each, holders});
        }
        const wide_string below = (holders.empty() ? holders : holders + u" / ") + each.caption;
        for (const element& child : each.children) enter(child, below);
    }
    std::unordered_map<wide_string, std::vector<place>> by_name;
};

const element* directory::find(const std::string& name, std::vector<std::string>& complaints) const {
    const auto row = by_name.find(platform::folded(platform::from_utf8(name)));
    if (row == by_name.end()) {
        complaints.push_back("no element has the uuid or caption \"" + name + "\"");
        return nullptr;
    }
    const auto same = [&](const place& other) {
        return other.found->uuid == row->second.front().found->uuid;
    };
    if (std::all_of(row->second.begin(), row->second.end(), same)) return row->second.front().found;
    std::string line =
        "\"" + name + "\" names " + std::to_string(row->second.size()) + " elements; give the uuid of one:";
    for (const place& candidate : row->second)
        line += "\n  " + one_line(candidate.found->uuid) + "  " + candidate.found->kind + " in " +
                one_line(candidate.holders);
    complaints.push_back(line);
    return nullptr;
}

void leave_out(const element& each, selection_register& selection) {
    if (each.selectable) selection.set_selected(each.uuid, false);
    for (const element& child : each.children) leave_out(child, selection);
}

// True if the element or anything below it is wanted.
bool keep_only(const element& each, const std::unordered_set<const element*>& wanted,
               selection_register& selection) {
    if (wanted.contains(&each)) return true;
    bool holds_wanted = false;
    for (const element& child : each.children)
        if (keep_only(child, wanted, selection)) holds_wanted = true;
    if (!holds_wanted && each.selectable) selection.set_selected(each.uuid, false);
    return holds_wanted;
}

} // namespace

std::vector<std::string> apply(const selection_request& request, const std::vector<element>& elements,
                               selection_register& selection) {
    const directory names(elements);
    std::vector<std::string> complaints;
    std::vector<const element*> unwanted;
    std::unordered_set<const element*> wanted;
    for (const std::string& name : request.deselect) unwanted.push_back(names.find(name, complaints));
    for (const std::string& name : request.only) wanted.insert(names.find(name, complaints));
    if (!complaints.empty()) return complaints;
    if (!wanted.empty())
        for (const element& each : elements) keep_only(each, wanted, selection);
    for (const element* each : unwanted) leave_out(*each, selection);
    return {};
}

} // namespace vestra::command
