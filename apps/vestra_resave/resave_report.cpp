#include "apps/vestra_resave/resave_report.h"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/elements.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

std::string size_text(uint64_t bytes) {
    if (bytes < 1024) return std::to_string(bytes) + " B";
    constexpr std::array<const char*, 5> units{"KB", "MB", "GB", "TB", "PB"};
    double value = static_cast<double>(bytes) / 1024;
    size_t unit = 0;
    for (; value >= 1024 && unit + 1 < units.size(); ++unit) value /= 1024;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f %s", value, units[unit]);
    return text.data();
}

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

// After a stop what was made may have been erased again.
std::vector<copied_file> copies_of(const path_placement& placement,
                                   const std::unordered_set<wide_string>& failed) {
    std::vector<copied_file> files;
    for (const placed_file& file : placement.placed)
        if (!file.old_path.empty() && path_exists(file.new_path) && !failed.contains(path_key(file.new_path)))
            files.push_back({file.old_path, file.new_path, bytes_of(file.new_path)});
    return files;
}

} // namespace

resave_report report_of(const run_state& run, const run_result& result, std::vector<problem> problems) {
    resave_report report;
    report.problems = std::move(problems);
    add_misplaced(run, report.problems);
    const std::unordered_set<wide_string> failed = unwritten_keys(report.problems);
    report.files = copies_of(run.placement, failed);
    const wide_string& project = run.placement.new_project_path;
    // The run asks only whether a project of that name exists, which can be an older one.
    const bool saved = result.written && !failed.contains(path_key(project));
    if (result.end == run_end::stopped) {
        report.exit = stopped, report.outcome = "stopped";
        report.problems.insert(report.problems.begin(), {own_kind::interrupted, {}, {}, {}});
    } else if (!saved) {
        report.exit = not_saved, report.outcome = "not saved";
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
    report.problems.push_back(std::move(found));
    if (report.exit == done) report.exit = problems, report.outcome = "saved with problems";
}

ordered_json json_of(const resave_report& report) {
    ordered_json files = ordered_json::array();
    for (const copied_file& file : report.files)
        files.push_back({{"source", platform::to_utf8(file.source)},
                         {"target", platform::to_utf8(file.target)},
                         {"bytes", file.bytes}});
    const auto view = [&](const char* kind) { return json_of(report.problems, kind); };
    return {{"outcome", report.outcome},
            {"files", std::move(files)},
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
            {"exceptions", view("exception_caught")},
            {"selection_settled", view("selection_not_settled").empty()}};
}

void print_json(const resave_report& report, const std::optional<verification>& found) {
    ordered_json all = json_of(report);
    if (found) {
        all["astray"] = json_of(found->astray);
        all["differing"] = json_of(found->differing);
        all["verification_stopped"] = found->stopped;
    }
    std::cout << all.dump(2) << '\n';
}

void print_problems(const resave_report& report) {
    for (const problem& each : report.problems)
        if (each.kind != name_of(fact_kind::renamed)) complain(line_of(each));
}

namespace {

// The names by number alone, unless files are listed: there can be thousands.
void print_renamed(const resave_report& report, bool list_files) {
    std::vector<const problem*> renamed;
    for (const problem& each : report.problems)
        if (each.kind == name_of(fact_kind::renamed)) renamed.push_back(&each);
    if (renamed.empty()) return;
    if (list_files)
        for (const problem* each : renamed) std::cout << line_of(*each) << '\n';
    std::cout << "renamed, as the name was taken: " << renamed.size()
              << (list_files ? "" : " (--files or --json names them)") << '\n';
}

} // namespace

void print_text(const resave_report& report, const wide_string& new_project, bool list_files) {
    if (list_files)
        for (const copied_file& file : report.files)
            std::cout << one_line(file.source) << " -> " << one_line(file.target) << '\n';
    uint64_t bytes = 0;
    for (const copied_file& file : report.files) bytes += file.bytes;
    std::cout << report.outcome << ": " << one_line(new_project) << ", " << report.files.size() << " files, "
              << size_text(bytes) << '\n';
    print_renamed(report, list_files);
}

} // namespace vestra::command
