#include "apps/vestra_resave/problems.h"

#include <algorithm>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/resave_report.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::to_utf8;

namespace {

struct kind_words {
    fact_kind kind;
    const char* name;
    // What failed, as it follows the path; a "%" stands for the new path.
    const char* text;
};
constexpr kind_words all_kinds[fact_kind_count] = {
    {fact_kind::source_lost, "source_lost", "does not exist"},
    {fact_kind::copy_failed, "copy_failed", "could not be copied to %"},
    {fact_kind::no_place, "no_place", "has no place under this folder structure"},
    {fact_kind::not_read, "not_read", "could not be read, so the files it refers to were not copied"},
    {fact_kind::not_written, "not_written", "could not be written"},
    {fact_kind::type_not_resaved, "type_not_resaved", "layers of this type are not resaved"},
    {fact_kind::join_kept, "join_kept", "still joined to the original table"},
    {fact_kind::selection_not_settled, "selection_not_settled",
     "references between elements had not settled after 12 rounds"},
    {fact_kind::not_erased, "not_erased", "could not be erased"},
    {fact_kind::renamed, "renamed", "was renamed to %"},
    {fact_kind::written_over, "written_over", "was written over a file that existed"},
    {fact_kind::exception_caught, "exception_caught", "internal error"},
};
constexpr const char* outside = "outside";

std::string text_of(const std::string& kind) {
    if (kind == outside) return "is outside the new project's folder";
    const auto row =
        std::ranges::find_if(all_kinds, [&](const kind_words& each) { return each.name == kind; });
    return row->text;
}

std::string native(const wide_string& path) {
    return path.empty() ? std::string() : platform::native_path(path).string();
}

// Why the host could not read or write the file of a fact; empty if it is not known.
wide_string reason_of_host(const fact& fact) {
    const files::file_error* refused = nullptr;
    if (fact.kind == fact_kind::not_read) refused = shell::settings().refused_reads.find(fact.path);
    if (fact.kind == fact_kind::not_written) refused = shell::settings().refused_writes.find(fact.new_path);
    return refused ? refused->why() : wide_string();
}

} // namespace

const char* name_of(fact_kind kind) { return all_kinds[static_cast<size_t>(kind)].name; }

problem problem_of(const fact& fact) {
    problem found{name_of(fact.kind), fact.element, fact.path, fact.new_path, fact.reason};
    if (fact.kind == fact_kind::type_not_resaved) found.reason = fact.subject;
    if (fact.kind == fact_kind::exception_caught) found.reason = fact.subject + u": " + fact.reason;
    return found;
}

std::vector<problem> problems_of(const run_state& run) {
    std::vector<problem> all;
    for (const fact& each : run.report.facts()) {
        problem& found = all.emplace_back(problem_of(each));
        if (found.reason.empty()) found.reason = reason_of_host(each);
    }
    if (run.report.incomplete)
        all.push_back({name_of(fact_kind::exception_caught), {}, {}, {}, u"too little memory to report"});
    return all;
}

void add_misplaced(const run_state& run, std::vector<problem>& all) {
    if (run.report.stopped) return;
    std::unordered_set<wide_string> known;
    for (const problem& each : all)
        if (each.kind == name_of(fact_kind::not_written)) known.insert(path_key(each.new_path));
    const path_placement& placement = run.placement;
    const wide_string below = path_key(placement.new_folder) + u'\\';
    for (const placed_file& file : placement.placed) {
        if (file.new_path == placement.log_path) continue; // entered whether it is written or not
        const wide_string key = path_key(file.new_path);
        if (!known.contains(key) && !path_exists(file.new_path))
            all.push_back({name_of(fact_kind::not_written), {}, file.old_path, file.new_path, {}});
        if (!key.starts_with(below)) all.push_back({outside, {}, file.old_path, file.new_path, {}});
    }
}

bool is_notice(const problem& found) {
    return found.kind == name_of(fact_kind::renamed) || found.kind == name_of(fact_kind::written_over);
}

ordered_json json_of(const problem& found) {
    return {{"kind", found.kind},
            {"element",
             {{"uuid", to_utf8(found.element.uuid)},
              {"caption", to_utf8(found.element.caption)},
              {"list", to_utf8(found.element.list)}}},
            {"path", to_utf8(found.path)},
            {"native_path", native(found.path)},
            {"new_path", to_utf8(found.new_path)},
            {"new_native_path", native(found.new_path)},
            {"reason", to_utf8(found.reason)}};
}

ordered_json json_of(const std::vector<problem>& all, std::string_view kind) {
    ordered_json array = ordered_json::array();
    for (const problem& each : all)
        if (each.kind == kind) array.push_back(json_of(each));
    return array;
}

std::string line_of(const problem& found) {
    std::string what = text_of(found.kind);
    wide_string about = found.path;
    if (const size_t place = what.find('%'); place != std::string::npos)
        what.replace(place, 1, one_line(found.new_path));
    else if (!found.new_path.empty())
        about = found.new_path;
    std::string line = about.empty() ? what : one_line(about) + ": " + what;
    if (!found.reason.empty()) line += ": " + one_line(found.reason);
    if (found.element.caption.empty() && found.element.list.empty()) return line;
    line += " (\"" + one_line(found.element.caption) + "\"";
    if (!found.element.list.empty()) line += " in \"" + one_line(found.element.list) + "\"";
    return line + ")";
}

} // namespace vestra::command
