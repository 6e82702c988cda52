// The plan of a dry run, printed as text or JSON.
#include "apps/vestra_resave/resave_plan.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;
using nlohmann::ordered_json;
using platform::folded;
using platform::to_utf8;

namespace {

bool is_same_name(const wide_string& a, const wide_string& b) {
    return folded(path_file_name(a)) == folded(path_file_name(b));
}

// Finds out what each target is copied from and whether it was renamed because of a conflict.
class origins {
public:
    explicit origins(const path_placement& placement) : new_project_(placement.new_project_path) {
        platform::system& disk = platform::current_system();
        for (const placed_file& each : placement.placed) {
            if (each.old_path.empty()) continue;
            sources_.try_emplace(path_key(each.new_path), each.old_path);
            // If a folder was renamed, all files in it have another path, although their names are the same.
            const bool is_folder = disk.kind_of(each.new_path) == platform::entry_kind::folder;
            if (is_folder && !is_same_name(each.old_path, each.new_path))
                renamed_folders_.insert(path_key(each.new_path));
        }
    }

    resave_plan::file file(const wide_string& source, const wide_string& path, uint64_t bytes) const {
        resave_plan::file planned{source, path, bytes};
        // The disk knows no source for a file that was written, but the run may: a scene file of a map is
        // written anew and still has one.
        planned.written = source.empty();
        const auto row = sources_.find(path_key(path));
        if (planned.source.empty() && row != sources_.end()) planned.source = row->second;
        planned.renamed = !planned.source.empty() && !path_same(path, new_project_) &&
                          (!is_same_name(planned.source, path) || is_in_renamed_folder(path));
        return planned;
    }

private:
    bool is_in_renamed_folder(const wide_string& path) const {
        if (renamed_folders_.empty()) return false;
        wide_string key = path_key(path);
        for (size_t end; (end = key.rfind(u'\\')) != wide_string::npos;) {
            key.resize(end);
            if (renamed_folders_.contains(key)) return true;
        }
        return false;
    }

    wide_string new_project_;
    std::unordered_map<wide_string, wide_string> sources_; // by path_key of the target
    std::unordered_set<wide_string> renamed_folders_;
};

} // namespace

resave_plan plan_of(const run_state& run, trial_disk& disk, resave_report& report) {
    resave_plan plan;
    const std::vector<trial_disk::made_file> made = disk.made_files();
    const origins from(run.placement);
    for (const trial_disk::made_file& each : made) {
        plan.files.push_back(from.file(each.source, each.path, each.bytes));
        plan.bytes += each.bytes;
    }
    const wide_string& folder = run.placement.new_folder;
    uint64_t free = 0;
    if (const platform::outcome found = disk.free_space(folder, free))
        plan.free_bytes = free;
    else
        plan.free_space_failure = found.text();
    if (plan.free_bytes && plan.bytes > free)
        add(report,
            {own_kind::too_little_space,
             {},
             {},
             folder,
             platform::from_utf8(say("%1 needed, %2 free", {size_text(plan.bytes), size_text(free)}))});
    return plan;
}

std::vector<resave_plan::file> made_files_of(const run_state& run) {
    std::vector<resave_plan::file> files;
    const origins from(run.placement);
    for (const made_file& each : run.placement.made.files()) {
        const platform::entry_status found = platform::current_system().status_of(each.path);
        if (found.kind == platform::entry_kind::file) // it may have been erased after a stop
            files.push_back(from.file(each.source, each.path, found.bytes));
    }
    return files;
}

ordered_json json_of(const resave_plan& plan, const resave_report& report) {
    ordered_json all = json_of(report);
    // The same keys as for a run, so a program can read both.
    all["outcome"] = "would be " + report.outcome;
    ordered_json& files = all["files"] = ordered_json::array();
    for (const resave_plan::file& file : plan.files)
        files.push_back({{"source", to_utf8(file.source)},
                         {"native_source", native_form(file.source)},
                         {"target", to_utf8(file.target)},
                         {"native_target", native_form(file.target)},
                         {"bytes", file.bytes},
                         {"renamed", file.renamed}});
    all["bytes"] = plan.bytes;
    all["free_bytes"] = plan.free_bytes ? ordered_json(*plan.free_bytes) : ordered_json(nullptr);
    return all;
}

void print_text(const resave_plan& plan, const resave_report& report, const wide_string& new_project) {
    for (const resave_plan::file& file : plan.files)
        std::cout << (file.source.empty() ? say("(new)") : printed(file.source)) << " -> "
                  << printed(file.target) << "  " << size_text(file.bytes)
                  << (file.renamed ? "  " + say("renamed") : "") << '\n';
    if (!plan.free_bytes)
        complain(say("free disk space could not be determined: %1",
                     {say_known(to_utf8(plan.free_space_failure))}));
    const std::string free = plan.free_bytes ? size_text(*plan.free_bytes) : say("unknown space");
    const std::string line = say("would be %1", {closing_line(report, new_project)});
    std::cout << say("%1; %2 free", {line, free}) << '\n';
}

} // namespace vestra::command
