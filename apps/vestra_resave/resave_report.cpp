// The report of a resave: outcome, counts, closing line, and their forms in JSON and text.
#include "apps/vestra_resave/resave_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>
#include <utility>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/words.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

std::string size_text(uint64_t bytes) {
    if (bytes < 1024) return say("%1 B", {std::to_string(bytes)});
    constexpr std::array<sentence, 5> units{"%1.%2 KB", "%1.%2 MB", "%1.%2 GB", "%1.%2 TB", "%1.%2 PB"};
    double value = static_cast<double>(bytes) / 1024;
    size_t unit = 0;
    for (; value >= 1024 && unit + 1 < units.size(); ++unit) value /= 1024;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f", value);
    // The texts have their own decimal separator, so the digits are inserted separately. The last one follows
    // the separator of the C library.
    const std::string digits = text.data();
    return say(units.at(unit), {digits.substr(0, digits.size() - 2), digits.substr(digits.size() - 1)});
}

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

// Files may have been erased after a stop.
void add_existing(const wide_string& source, const wide_string& target, std::vector<copied_file>& files) {
    const platform::entry_status found = platform::current_system().status_of(target);
    if (found.kind == platform::entry_kind::none) return;
    files.push_back(
        {source, target, found.kind == platform::entry_kind::folder ? bytes_of(target) : found.bytes});
}

std::vector<copied_file> copies_of(const path_placement& placement,
                                   const std::unordered_set<wide_string>& failed) {
    std::vector<copied_file> files;
    for (const placed_file& file : placement.placed)
        if (!file.old_path.empty() && !failed.contains(path_key(file.new_path)))
            add_existing(file.old_path, file.new_path, files);
    return files;
}

struct summary_count {
    sentence words;
    const char* name; // in JSON
    size_t resave_summary::*count;
};
constexpr summary_count counts[] = {
    {"%1 already copied", "taken_over", &resave_summary::taken_over},
    {"%1 unchanged", "unchanged", &resave_summary::unchanged},
    {"%1 replaced", "replaced", &resave_summary::replaced},
    {"%1 no longer referred to", "unreferenced", &resave_summary::unreferenced},
    {"%1 removed", "pruned", &resave_summary::pruned},
    {"%1 changed since", "changed_since", &resave_summary::changed_since},
    {"%1 renamed", "renamed", &resave_summary::renamed},
    {"%1 lost", "lost", &resave_summary::lost},
    {"%1 failed", "failed", &resave_summary::failed},
    {"%1 of an unknown type", "not_resaved", &resave_summary::not_resaved},
    {"%1 broken references", "astray", &resave_summary::astray},
    {"%1 left behind", "left_behind", &resave_summary::left_behind},
    {"%1 dropped", "dropped", &resave_summary::dropped},
    {"%1 left alone", "left_alone", &resave_summary::left_alone},
};

// Returns the count for a problem; a problem of any other kind counts as failed. Returns null for a stop and
// for notices that are not counted.
size_t resave_summary::*count_of(const problem& found) {
    const std::pair<const char*, size_t resave_summary::*> rows[] = {
        {name_of(fact_kind::renamed), &resave_summary::renamed},
        {own_kind::unreferenced, &resave_summary::unreferenced},
        {own_kind::pruned, &resave_summary::pruned},
        {own_kind::changed_since, &resave_summary::changed_since},
        {name_of(fact_kind::source_lost), &resave_summary::lost},
        {name_of(fact_kind::type_not_resaved), &resave_summary::not_resaved},
        {own_kind::left_behind, &resave_summary::left_behind},
        {own_kind::dropped, &resave_summary::dropped},
        {own_kind::left_alone, &resave_summary::left_alone}};
    for (const auto& [kind, count] : rows)
        if (found.kind == kind) return count;
    if (is_notice(found) || found.kind == own_kind::interrupted) return nullptr;
    return found.holder.empty() ? &resave_summary::failed : &resave_summary::astray;
}

ordered_json json_of(const resave_summary& summary) {
    ordered_json all{{"files", summary.files}, {"bytes", summary.bytes}};
    for (const summary_count& each : counts) all[each.name] = summary.*each.count;
    return all;
}

} // namespace

resave_summary summary_of(const resave_report& report) {
    resave_summary summary;
    summary.files = report.copies.size();
    for (const copied_file& each : report.copies) summary.bytes += each.bytes;
    summary.taken_over = report.taken_over.size();
    summary.unchanged = report.unchanged.size();
    summary.replaced = report.replaced.size();
    for (const problem& each : report.problems)
        if (const auto count = count_of(each)) ++(summary.*count);
    return summary;
}

std::vector<summary_part> parts_of(const resave_summary& summary) {
    std::vector<summary_part> parts;
    for (const auto& [words, name, count] : counts) {
        if (summary.*count == 0) continue;
        std::string label = say(words, {""});
        // The label is the text without its number: "left alone"; in other languages the number can come
        // last.
        std::erase(label, ':');
        const size_t first = label.find_first_not_of(' '), last = label.find_last_not_of(' ');
        parts.push_back({name, summary.*count, say(words, {std::to_string(summary.*count)}),
                         label.substr(first, last - first + 1)});
    }
    return parts;
}

const char* counted_as(const problem& found) {
    const auto count = count_of(found);
    const auto* const row = std::ranges::find(counts, count, &summary_count::count);
    return row == std::end(counts) ? nullptr : row->name;
}

resave_report report_of(const run_state& run, const run_result& result, std::vector<problem> problems) {
    resave_report report;
    report.problems = std::move(problems);
    add_misplaced(run, report.problems);
    const std::unordered_set<wide_string> failed = unwritten_keys(report.problems);
    report.files = copies_of(run.placement, failed);
    // A file without a source was written and not copied.
    for (const made_file& made : run.placement.made.files())
        if (!made.source.empty()) add_existing(made.source, made.path, report.copies);
    const wide_string& project = run.placement.new_project_path;
    // The run only checks whether a project with this name exists, which can be an older one.
    const bool saved = result.written && !failed.contains(path_key(project));
    if (result.end == run_end::stopped) {
        report.exit = stopped, report.outcome = "stopped";
        report.problems.insert(report.problems.begin(), {own_kind::interrupted, {}, {}, {}});
    } else if (!saved) {
        report.exit = not_saved, report.outcome = "not saved";
        // Exit status 3 needs a reason. If nothing else is known, it is the project that was not written.
        if (std::ranges::all_of(report.problems, &is_notice))
            report.problems.push_back({name_of(fact_kind::not_written),
                                       {},
                                       run.placement.source_project_path,
                                       project,
                                       result.failure});
    } else if (!std::ranges::all_of(report.problems, &is_notice)) {
        report.exit = command::problems, report.outcome = "saved with problems";
    } else {
        report.outcome = "saved";
    }
    return report;
}

void add(resave_report& report, problem found) {
    const bool is_wanted = is_notice(found);
    report.problems.push_back(std::move(found));
    // Only "saved" can become worse; the other outcomes say more than that there was a problem.
    if (!is_wanted && report.exit == done) report.exit = problems, report.outcome = "saved with problems";
}

ordered_json json_of(const std::vector<copied_file>& all) {
    ordered_json files = ordered_json::array();
    for (const copied_file& file : all)
        files.push_back({{"source", platform::to_utf8(file.source)},
                         {"native_source", native_form(file.source)},
                         {"target", platform::to_utf8(file.target)},
                         {"native_target", native_form(file.target)},
                         {"bytes", file.bytes}});
    return files;
}

ordered_json json_of(const resave_report& report) {
    const auto view = [&](const char* kind) { return json_of(report.problems, kind); };
    return {{"outcome", report.outcome},
            {"files", json_of(report.files)},
            {"taken_over", json_of(report.taken_over)},
            {"unchanged", json_of(report.unchanged)},
            {"replaced", json_of(report.replaced)},
            {"unreferenced", view(own_kind::unreferenced)},
            {"pruned", view(own_kind::pruned)},
            {"changed_since", view(own_kind::changed_since)},
            {"stale", view(own_kind::stale)},
            {"resumable", report.resumable},
            {"problems", json_of(report.problems)},
            {"lost_sources", view("source_lost")},
            {"copy_errors", view("copy_failed")},
            {"types_not_resaved", view("type_not_resaved")},
            {"not_written", view("not_written")},
            {"outside", view("outside")},
            {"not_read", view("not_read")},
            {"kept_joins", view("join_kept")},
            {"not_erased", view("not_erased")},
            {"renamed", view("renamed")},
            {"written_over", view("written_over")},
            {"found", json_of_found(report.problems)},
            {"not_searched", view(own_kind::not_searched)},
            {"exceptions", view("exception_caught")},
            {"selection_settled", view("selection_not_settled").empty()},
            {"astray", json_of(report.found.astray)},
            {"left_behind", view(own_kind::left_behind)},
            {"dropped", view(own_kind::dropped)},
            {"left_alone", view(own_kind::left_alone)},
            {"differing", json_of(report.found.differing)},
            {"verification_stopped", report.found.stopped},
            {"summary", json_of(summary_of(report))}};
}

void print_problems(const resave_report& report) {
    std::vector<problem> all = report.problems;
    // Renamed copies are normal and can be many; --files prints them.
    std::erase_if(all, [](const problem& each) { return each.kind == name_of(fact_kind::renamed); });
    print(all);
    if (report.resumable) complain(say("use --resume to continue this resave"));
}

std::string closing_line(const resave_report& report, const wide_string& new_project) {
    const resave_summary summary = summary_of(report);
    std::string line = say("%1: %2, %3 files, %4", {say_known(report.outcome), printed(new_project),
                                                    std::to_string(summary.files), size_text(summary.bytes)});
    const char* before = "; ";
    for (const summary_part& part : parts_of(summary)) line += std::exchange(before, ", ") + part.text;
    return line;
}

void print_text(const resave_report& report, const wide_string& new_project, bool list_files) {
    if (list_files) {
        for (const copied_file& file : report.files)
            std::cout << printed(file.source) << " -> " << printed(file.target) << '\n';
        for (const problem& each : report.problems)
            if (each.kind == name_of(fact_kind::renamed)) std::cout << line_of(each) << '\n';
    }
    std::cout << closing_line(report, new_project) << '\n';
}

} // namespace vestra::command
