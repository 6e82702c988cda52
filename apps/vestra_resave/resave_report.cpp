#include "apps/vestra_resave/resave_report.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_set>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/figures.h"
#include "framework/resources/strings.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "reference_host/shell/settings.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;

namespace {

// The report's texts are lines that begin with what happened. A line that does not belongs to the caption
// before it, which may have several.
void sort_problems(const std::vector<run_report::problem>& from, resave_report& to) {
    const wide_string lost = load_string(519), failed = load_string(520);
    for (const run_report::problem& problem : from) {
        wide_string* last = nullptr;
        const size_t lost_before = to.lost_sources.size(), failed_before = to.copy_errors.size();
        for (const wide_string& line : path_split(problem.text, u"\n", true)) {
            if (line.starts_with(lost))
                last = &to.lost_sources.emplace_back(line.substr(lost.size()));
            else if (line.starts_with(failed))
                last = &to.copy_errors.emplace_back(line.substr(failed.size()));
            else if (last != nullptr)
                last->append(u"\n").append(line);
        }
        const wide_string place = problem.title.empty() ? wide_string() : u" (" + problem.title + u")";
        for (size_t i = lost_before; i < to.lost_sources.size(); ++i) to.lost_sources[i] += place;
        for (size_t i = failed_before; i < to.copy_errors.size(); ++i) to.copy_errors[i] += place;
    }
}

std::vector<wide_string> with_owners(const std::vector<run_report::problem>& paths) {
    std::vector<wide_string> all;
    for (const auto& [owner, path] : paths) all.push_back(path + u" (" + owner + u")");
    return all;
}

// After a stop what was made may have been erased again.
void look_at_files(const project_context& context, resave_report& to) {
    const path_placement& placement = context.placement;
    const wide_string below = path_key(placement.new_folder) + u'\\';
    std::unordered_set<wide_string> refused;
    for (const shell::refused_file& file : shell::settings().refused_writes)
        refused.insert(path_key(file.path));
    for (const placed_file& file : placement.placed) {
        if (file.new_path == placement.log_path) continue; // entered whether it is written or not
        const bool is_made = path_exists(file.new_path) && !refused.contains(path_key(file.new_path));
        if (is_made && !file.old_path.empty())
            to.files.push_back({file.old_path, file.new_path, bytes_of(file.new_path)});
        if (context.report.stopped) continue;
        const bool is_told = file.new_path == placement.new_project_path; // where it is refused
        if (!is_made && !is_told) to.not_written.push_back(file.new_path);
        if (!path_key(file.new_path).starts_with(below)) to.outside.push_back(file.new_path);
    }
    if (!context.report.stopped && context.log.has_lost_lines()) to.not_written.push_back(placement.log_path);
}

ordered_json texts(const std::vector<wide_string>& all) {
    ordered_json array = ordered_json::array();
    for (const wide_string& text : all) array.push_back(platform::to_utf8(text));
    return array;
}

} // namespace

resave_report report_of(const project_context& context) {
    resave_report report;
    const run_report& run = context.report;
    sort_problems(run.untitled, report);
    report.untold_losses = report.lost_sources.size();
    report.untold_errors = report.copy_errors.size();
    sort_problems(run.problems, report);
    report.not_read = with_owners(run.unread_files);
    report.types_not_resaved.assign(run.unprocessed_types.begin(), run.unprocessed_types.end());
    report.depth_exceeded = run.depth_exceeded;
    look_at_files(context, report);
    report.not_erased = run.not_erased;
    report.kept_joins = with_owners(run.kept_joins);
    const bool clean = run.problems.empty() && run.untitled.empty() && run.unprocessed_types.empty() &&
                       !run.depth_exceeded && report.not_written.empty() && report.outside.empty() &&
                       report.not_read.empty() && report.kept_joins.empty();
    if (run.stopped)
        report.exit = stopped, report.outcome = "stopped";
    else if (!run.saved)
        report.exit = not_saved, report.outcome = "not saved";
    else if (!clean)
        report.exit = problems, report.outcome = "saved with problems";
    else
        report.outcome = "saved";
    return report;
}

ordered_json json_of(const resave_report& report) {
    ordered_json files = ordered_json::array();
    for (const copied_file& file : report.files)
        files.push_back({{"source", platform::to_utf8(file.source)},
                         {"target", platform::to_utf8(file.target)},
                         {"bytes", file.bytes}});
    return {{"outcome", report.outcome},
            {"files", std::move(files)},
            {"lost_sources", texts(report.lost_sources)},
            {"copy_errors", texts(report.copy_errors)},
            {"types_not_resaved", texts(report.types_not_resaved)},
            {"not_written", texts(report.not_written)},
            {"outside", texts(report.outside)},
            {"not_read", texts(report.not_read)},
            {"kept_joins", texts(report.kept_joins)},
            {"not_erased", texts(report.not_erased)},
            {"selection_settled", !report.depth_exceeded}};
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

void complain_of_files(const resave_report& report) {
    for (const wide_string& file : report.not_written) complain("not written: " + one_line(file));
    for (const wide_string& file : report.outside)
        complain("outside the new project's folder: " + one_line(file));
    for (const wide_string& file : report.not_read)
        complain("cannot be read, what it refers to is not resaved: " + one_line(file));
    for (const wide_string& table : report.kept_joins)
        complain("joined at its source still: " + one_line(table));
    for (const wide_string& file : report.not_erased) complain("not erased: " + one_line(file));
}

void complain_of_problems(const resave_report& report, bool is_told) {
    const auto tell = [&](const char* what, const std::vector<wide_string>& all, size_t untold) {
        for (size_t i = 0; i < (is_told ? untold : all.size()); ++i) complain(what + one_line(all[i]));
    };
    tell("lost source: ", report.lost_sources, report.untold_losses);
    tell("not copied: ", report.copy_errors, report.untold_errors);
    tell("layer type not resaved: ", report.types_not_resaved, 0);
    if (report.depth_exceeded && !is_told) complain(one_line(load_string(522)));
}

void print_text(const resave_report& report, const wide_string& new_project, bool list_files) {
    if (list_files)
        for (const copied_file& file : report.files)
            std::cout << one_line(file.source) << " -> " << one_line(file.target) << '\n';
    uint64_t bytes = 0;
    for (const copied_file& file : report.files) bytes += file.bytes;
    std::cout << report.outcome << ": " << one_line(new_project) << ", " << report.files.size() << " files, "
              << size_text(bytes) << '\n';
}

} // namespace vestra::command
