// The command `list`: prints the element tree as text or JSON.
#include "apps/vestra_resave/commands.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/archive/archive_view.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/family_sizes.h"
#include "apps/vestra_resave/lost_files.h"
#include "apps/vestra_resave/remembered_disk.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::to_utf8;

namespace {

ordered_json to_json(const element& shown, const selection_register& selection) {
    ordered_json children = ordered_json::array();
    for (const element& child : shown.children) children.push_back(to_json(child, selection));
    return {{"kind", shown.kind},
            {"type", to_utf8(shown.type)},
            {"caption", to_utf8(shown.caption)},
            {"uuid", to_utf8(shown.uuid)},
            {"file", to_utf8(shown.file)},
            {"native_file", native_form(shown.file)},
            {"exists", shown.exists ? ordered_json(*shown.exists) : ordered_json(nullptr)},
            {"bytes", shown.bytes},
            {"selectable", shown.selectable},
            {"selected", selection.is_selected(shown.uuid)},
            {"children", std::move(children)}};
}

void print(const element& shown, size_t depth) {
    std::string line = std::string(2 * depth, ' ') + one_line(shown.caption);
    if (shown.kind == "group")
        line += "/";
    else if (!shown.type.empty())
        line += "  [" + one_line(shown.type) + "]";
    if (!shown.uuid.empty()) line += "  " + one_line(shown.uuid);
    if (!shown.file.empty()) line += "  " + printed(shown.file);
    // Said only of elements that a user could try to name.
    if (!shown.uuid.empty() && !shown.selectable) line += "  " + say("(always kept)");
    if (shown.exists) line += *shown.exists ? "  " + size_text(shown.bytes) : "  " + say("MISSING");
    std::cout << line << '\n';
    for (const element& child : shown.children) print(child, depth + 1);
}

// Counts the listed elements and their missing files, each file once.
struct summary {
    size_t elements = 0, missing = 0;
    std::unordered_set<wide_string> known; // path keys

    void add(const element& shown) {
        if (shown.kind != "collection" && shown.kind != "group") ++elements;
        if (shown.exists == false && known.insert(path_key(shown.file)).second) ++missing;
        for (const element& child : shown.children) add(child);
    }
};

// Removes elements that are not missing a file and contain none that are. True if any are left.
bool keep_missing(std::vector<element>& elements) {
    std::erase_if(elements,
                  [](element& each) { return !keep_missing(each.children) && each.exists != false; });
    return !elements.empty();
}

} // namespace

int list_project(const list_request& request, const common_options& options) {
    std::string project = request.project;
    // In this order: the archive is read with the progress of the session, and the cache is above the
    // archive.
    session host(options, {});
    read_archive_scope archive;
    if (const auto early = archive.begin(host, project, false)) return end_with(*early, options);
    remembered_disk asked_once;
    const platform::system_override in_force(asked_once);
    lost_file_search search;
    if (const auto early = search.begin(request.search)) return end_with(*early, options);
    if (const auto early = host.load(project)) return end_with(*early, options);
    std::vector<problem> found = host.reading_problems();
    std::ranges::move(search.undecided(), std::back_inserter(found));
    if (archive.view()) std::ranges::copy(archive.view()->problems(), std::back_inserter(found));
    const std::vector<problem> notices = search.notices();
    print(found);
    print(notices);
    const int end = found.empty() ? done : problems;
    const wide_string& path = host.context().placement.source_project_path;
    std::vector<element> elements = elements_of(host.context());
    summary all_of_it;
    family_sizes sizes(host.context().sizes);
    // The summary counts all elements, also if only the missing ones are listed.
    for (element& each : elements) {
        sizes.set_bytes(each);
        all_of_it.add(each);
    }
    if (request.missing) keep_missing(elements);
    if (options.json) {
        ordered_json all = ordered_json::array();
        for (const element& shown : elements) all.push_back(to_json(shown, host.context().selection));
        const ordered_json shown{{"project", to_utf8(path)},
                                 {"native_project", native_form(path)},
                                 {"outcome", found.empty() ? "listed" : "listed with problems"},
                                 {"problems", json_of(found)},
                                 {"found", json_of_found(notices)},
                                 {"not_searched", json_of(notices, own_kind::not_searched)},
                                 {"elements", std::move(all)},
                                 {"summary",
                                  {{"elements", all_of_it.elements},
                                   {"files", sizes.files()},
                                   {"bytes", sizes.bytes()},
                                   {"missing", all_of_it.missing}}}};
        std::cout << shown.dump(2) << '\n';
        return end;
    }
    std::cout << printed(path) << "  " << size_text(bytes_of(path)) << '\n';
    for (const element& shown : elements) print(shown, 1);
    std::cout << say("%1 elements, %2 files, %3, %4 missing",
                     {std::to_string(all_of_it.elements), std::to_string(sizes.files()),
                      size_text(sizes.bytes()), std::to_string(all_of_it.missing)})
              << '\n';
    return end;
}

} // namespace vestra::command
