// Collects problems from a run and from the host, and prints them as text or JSON.
#include "apps/vestra_resave/problems.h"

#include <algorithm>
#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
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
    const char* name;
    // What failed, printed after the path; "%1" is the new path.
    sentence text;
};
// The kinds of facts come first, in the order of fact_kind, whose number is the index. All others are found
// by name.
constexpr kind_words all_kinds[] = {
    {"source_lost", "does not exist"},
    {"copy_failed", "could not be copied to %1"},
    {"no_place", "has no place under this folder structure"},
    {"not_read", "could not be read, so the files it refers to were not copied"},
    {"not_written", "could not be written"},
    {"type_not_resaved", "layers of this type are not resaved"},
    {"reads_other", "its copy %1 reads a file that is not its own"},
    {"join_kept", "still joined to the original table"},
    {"selection_not_settled", "possibly not all elements that others refer to were added"},
    {"not_erased", "could not be erased"},
    {"renamed", "was renamed to %1"},
    {"written_over", "replaced an existing file"},
    {"exception_caught", "internal error"},
    {own_kind::outside, "is outside the new project's folder"},
    {own_kind::refused, {}},
    {own_kind::not_loaded, "could not be loaded"},
    {own_kind::not_created, "could not be created"},
    {own_kind::not_entered, "could not be made the current folder"},
    {own_kind::too_little_space, "too little space"},
    {own_kind::not_writable, "cannot be written to"},
    {own_kind::name_too_long, "a file with this name cannot be created"},
    {own_kind::unportable_name, "has a name that Windows does not accept"},
    {own_kind::interrupted, "interrupted"},
    {own_kind::unreferenced, "is no longer referred to"},
    {own_kind::stale, "is left from an earlier resave and would be read with %1; use --prune to remove it"},
    {own_kind::pruned, "was no longer referred to and has been removed"},
    {own_kind::changed_since, "was changed since the earlier resave and is left as it is"},
    {own_kind::found, "was found at %1"},
    {own_kind::not_searched, "could not be searched"},
    {own_kind::left_behind, "was left behind"},
    {own_kind::dropped, "is not in the new project"},
    {own_kind::left_alone, "was not copied, because the files of this kind of element are not resaved"},
    {own_kind::reference_outside, "is outside the project's folder"},
    {own_kind::reference_missing, "does not exist"},
    {own_kind::reference_outside_and_missing, "is outside the project's folder and does not exist"},
    {own_kind::reference_empty, "is empty"},
    {own_kind::unreadable, "could not be read"},
    {own_kind::copy_missing, "its copy %1 does not exist"},
    {own_kind::copy_size_differs, "its copy %1 has a different size"},
    {own_kind::copy_content_differs, "its copy %1 has different content"},
    {own_kind::copy_unreadable, "its copy %1 could not be read"},
    {own_kind::source_unreadable, "could not be read to compare it with %1"},
    {own_kind::archive_entry, "was not read from the archive"},
    {own_kind::manifest_lacks, "is not in the manifest"},
    {own_kind::manifest_outside, "lists a file outside the project's folder"},
    {own_kind::manifest_missing, "is in the manifest but does not exist"},
    {own_kind::manifest_size_differs, "differs in size from the manifest"},
    {own_kind::manifest_content_differs, "differs in content from the manifest"},
};

// Returns why the host could not read or write the file of a fact; empty if unknown.
wide_string reason_of_host(const fact& fact) {
    const files::file_error* refused = nullptr;
    // The host keeps its reasons by path; a fact only says that something failed.
    if (fact.kind == fact_kind::not_read) return read_error_of(fact.path);
    if (fact.kind == fact_kind::not_written) refused = shell::settings().refused_writes.find(fact.new_path);
    return refused ? refused->why() : wide_string();
}

// Returns the file that exists where a folder of this path would be created; empty if there is none.
wide_string file_in_the_way(const wide_string& path) {
    platform::system& disk = platform::current_system();
    for (wide_string folder = path_head(path); !folder.empty();) {
        folder = path_normalise(folder);
        if (folder.size() <= path_fixed_length(folder)) break;
        // The nearest existing level decides: below a folder nothing is in the way.
        const platform::entry_kind kind = disk.kind_of(folder);
        if (kind == platform::entry_kind::file) return folder;
        if (kind == platform::entry_kind::folder) break;
        folder = path_head(folder);
    }
    return {};
}

} // namespace

wide_string reason_of(const wide_string& reason, const wide_string& path) {
    const wide_string file = file_in_the_way(path);
    if (file.empty()) return reason;
    return platform::from_utf8(say("%1 (%2 is in the way)", {say_known(to_utf8(reason)), printed(file)}));
}

std::string native_form(const wide_string& path) {
    const std::optional<wide_string> place = path_in(path);
    return place ? platform::native_text(*place) : std::string();
}

std::string printed(const wide_string& path) {
    const std::string native = native_form(path);
    const bool is_marked = path.starts_with(u'*');
    return native.empty() ? one_line(path) : (is_marked ? "*" : "") + one_line(platform::from_utf8(native));
}

const char* name_of(fact_kind kind) { return all_kinds[static_cast<size_t>(kind)].name; }

problem problem_of(const fact& fact) {
    problem found{name_of(fact.kind), fact.element, fact.path, fact.new_path, fact.reason};
    if (fact.kind == fact_kind::type_not_resaved) found.reason = fact.subject;
    if (fact.kind == fact_kind::reads_other) found.reason = platform::from_utf8(printed(fact.reason));
    if (fact.kind == fact_kind::exception_caught) found.reason = fact.subject + u": " + fact.reason;
    return found;
}

std::vector<problem> problems_of(const run_state& run) {
    std::vector<problem> all;
    // One file of an element can be tried twice, if two rules apply to it.
    std::unordered_set<wide_string> known;
    for (const fact& each : run.report.facts()) {
        problem found = problem_of(each);
        if (each.kind == fact_kind::copy_failed) found.reason = reason_of(found.reason, found.new_path);
        if (found.reason.empty()) found.reason = reason_of_host(each);
        if (known.insert(key_of(found) + u'\n' + found.new_path + u'\n' + found.reason).second)
            all.push_back(std::move(found));
    }
    // A fact could not even be stored. This must not look like a run without problems.
    if (run.report.incomplete)
        all.push_back({name_of(fact_kind::exception_caught),
                       {},
                       {},
                       {},
                       platform::from_utf8(say("too little memory for the report"))});
    return all;
}

wide_string key_of(const problem& found) {
    return platform::from_utf8(found.kind) + u'\n' + found.element.uuid + u'\n' + found.element.caption +
           u'\n' + path_key(found.path);
}

void add_misplaced(const run_state& run, std::vector<problem>& all) {
    if (run.report.stopped) return;
    // A file that is reported as not written is not reported again as missing.
    const std::unordered_set<wide_string> known = unwritten_keys(all);
    const path_placement& placement = run.placement;
    const wide_string below = path_key(placement.new_folder) + u'\\';
    for (const placed_file& file : placement.placed) {
        if (file.new_path == placement.log_path) continue; // registered whether it was written or not
        const wide_string key = path_key(file.new_path);
        if (!known.contains(key) && !path_exists(file.new_path))
            all.push_back({name_of(fact_kind::not_written), {}, file.old_path, file.new_path, {}});
        if (!key.starts_with(below)) all.push_back({own_kind::outside, {}, file.old_path, file.new_path, {}});
    }
}

wide_string read_error_of(const wide_string& path) {
    const files::file_error* const refused = shell::settings().refused_reads.find(path);
    return refused ? refused->why() : wide_string();
}

std::unordered_set<wide_string> unwritten_keys(const std::vector<problem>& all) {
    std::unordered_set<wide_string> keys;
    for (const problem& each : all)
        if (each.kind == name_of(fact_kind::not_written)) keys.insert(path_key(each.new_path));
    return keys;
}

bool is_notice(const problem& found) {
    const std::string_view notices[] = {name_of(fact_kind::renamed), name_of(fact_kind::written_over),
                                        own_kind::unreferenced,      own_kind::pruned,
                                        own_kind::changed_since,     own_kind::found,
                                        own_kind::not_searched};
    return std::ranges::find(notices, found.kind) != std::end(notices);
}

wide_string as_on_disk(const wide_string& path) {
    if (path.find_last_of(path_separators) == wide_string::npos) return path; // such as "N:name"
    wide_string whole = path_normalise(path), spelled;
    const wide_string head = path_head(whole);
    // If only the beginning of the path exists, that part is spelled as on the disk.
    if (true_case_path(whole, spelled)) return spelled;
    if (head.empty() || whole.size() <= path_fixed_length(whole)) return whole;
    return path_join(as_on_disk(head), path_file_name(whole));
}

refusal refused(const wide_string& path, const std::string& reason) {
    return {wrong_use, {{own_kind::refused, {}, as_on_disk(path), {}, platform::from_utf8(reason)}}};
}

int end_with(const refusal& early, const common_options& options) {
    print(early.problems);
    const char* const outcome = early.exit == stopped     ? "stopped"
                                : early.exit == wrong_use ? "refused"
                                                          : "failed";
    if (options.json)
        std::cout << ordered_json{{"outcome", outcome}, {"problems", json_of(early.problems)}}.dump(2)
                  << '\n';
    return early.exit;
}

ordered_json json_of(const problem& found) {
    ordered_json all{{"kind", found.kind},
                     {"element",
                      {{"uuid", to_utf8(found.element.uuid)},
                       {"caption", to_utf8(found.element.caption)},
                       {"list", to_utf8(found.element.list)}}},
                     {"path", to_utf8(found.path)},
                     {"native_path", native_form(found.path)},
                     {"new_path", to_utf8(found.new_path)},
                     {"new_native_path", native_form(found.new_path)},
                     {"reason", say_known(to_utf8(found.reason))}};
    for (const wide_string& each : found.candidates)
        all["candidates"].push_back({{"path", to_utf8(each)}, {"native_path", native_form(each)}});
    if (found.holder.empty()) return all;
    all["holder"] = found.holder;
    all["file"] = to_utf8(found.file);
    all["native_file"] = native_form(found.file);
    return all;
}

ordered_json json_of(const std::vector<problem>& all) {
    ordered_json array = ordered_json::array();
    for (const problem& each : all)
        if (!is_notice(each)) array.push_back(json_of(each));
    return array;
}

ordered_json json_of(const std::vector<problem>& all, std::string_view kind) {
    ordered_json array = ordered_json::array();
    for (const problem& each : all)
        if (each.kind == kind) array.push_back(json_of(each));
    return array;
}

ordered_json json_of_found(const std::vector<problem>& all) {
    ordered_json array = ordered_json::array();
    for (const ordered_json& each : json_of(all, own_kind::found))
        array.push_back({{"element", each["element"]},
                         {"path", each["path"]},
                         {"native_path", each["native_path"]},
                         {"found_at", each["new_path"]},
                         {"native_found_at", each["new_native_path"]}});
    return array;
}

namespace {

// Returns the element of a problem with the list that contains it and the file with the reference.
std::string holder_of(const problem& found) {
    const std::string caption = one_line(found.element.caption), list = one_line(found.element.list);
    std::string holder;
    if (!list.empty())
        holder = say("\"%1\" in \"%2\"", {caption, list});
    else if (!caption.empty())
        holder = '"' + caption + '"';
    if (found.file.empty()) return holder;
    if (found.file == found.path) return {}; // the file is reported instead of an element
    return say("%1 %2 in %3", {say_known(found.holder), holder, printed(found.file)});
}

} // namespace

std::string what_of(const problem& found) {
    const auto* const row = std::ranges::find(all_kinds, found.kind, &kind_words::name);
    // A file that cannot be reached may well exist.
    if (found.kind == name_of(fact_kind::source_lost) && !found.reason.empty() && found.candidates.empty())
        return say("cannot be reached");
    if (found.kind == name_of(fact_kind::copy_failed) && found.new_path.empty())
        return say("could not be copied");
    return say(row->text, {printed(found.new_path)});
}

problem_words words_of(const problem& found) {
    const auto* const row = std::ranges::find(all_kinds, found.kind, &kind_words::name);
    // The line begins with the source if the text itself names the copy. Otherwise the copy is what failed,
    // and the line begins with it.
    const bool names_new_path = say(row->text).find("%1") != std::string::npos;
    return {printed(found.new_path.empty() || names_new_path ? found.path : found.new_path), what_of(found),
            one_line(platform::from_utf8(say_known(to_utf8(found.reason)))), holder_of(found)};
}

std::string line_of(const problem& found) {
    const problem_words words = words_of(found);
    // A problem without a file is named by its element.
    std::string line = words.about.empty() ? words.element : words.about;
    for (const std::string& part : {words.what, words.reason})
        if (!part.empty()) line += (line.empty() ? "" : ": ") + part;
    return words.about.empty() || words.element.empty() ? line : line + " (" + words.element + ")";
}

namespace {

bool is_of_full_disk(const problem& found) {
    return found.reason == platform::outcome(platform::failure::disk_full).text();
}

// Returns what makes two problems the same to a user. Files left behind are listed because of the file next
// to them, so their reasons are ignored.
wide_string likeness_of(const problem& found) {
    if (is_of_full_disk(found)) return found.reason;
    const wide_string kind = platform::from_utf8(found.kind);
    return found.kind == own_kind::left_behind ? kind : kind + u'\n' + found.reason;
}

} // namespace

void print(const std::vector<problem>& all) {
    constexpr size_t most = 20, shown = 10;
    std::unordered_map<wide_string, size_t> counts, printed_lines;
    for (const problem& each : all) ++counts[likeness_of(each)];
    for (const problem& each : all) {
        const size_t count = counts[likeness_of(each)];
        const size_t line = ++printed_lines[likeness_of(each)];
        // Every later copy fails in the same way, so the user needs one line and the number.
        if (is_of_full_disk(each) && count > 1) {
            if (line == 1)
                complain(
                    say("%1: %2; %3 files could not be written (--json lists all)",
                        {printed(each.new_path), say_known(to_utf8(each.reason)), std::to_string(count)}));
            continue;
        }
        const bool is_shortened = !is_notice(each) && count > most;
        if (!is_shortened || line <= shown) complain(line_of(each));
        if (is_shortened && line == shown)
            complain(say("and %1 more like this (--json lists all)", {std::to_string(count - shown)}));
    }
}

} // namespace vestra::command
