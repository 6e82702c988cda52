#include "apps/vestra_resave/resave_plan.h"

#include <iostream>
#include <nlohmann/json.hpp>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/resave_report.h"
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

// Tells of each target what it comes from and whether a conflict gave it another name.
class origins {
public:
    origins(const path_placement& placement, trial_disk& disk) : new_project_(placement.new_project_path) {
        for (const placed_file& each : placement.placed) {
            if (each.old_path.empty()) continue;
            sources_.try_emplace(path_key(each.new_path), each.old_path);
            const bool is_folder = disk.kind_of(each.new_path) == platform::entry_kind::folder;
            if (is_folder && !is_same_name(each.old_path, each.new_path))
                renamed_folders_.insert(path_key(each.new_path));
        }
    }

    resave_plan::file file(const trial_disk::made_file& made) const {
        resave_plan::file planned{made.source, made.path, made.bytes};
        const auto row = sources_.find(path_key(made.path));
        if (planned.source.empty() && row != sources_.end()) planned.source = row->second;
        planned.renamed = !planned.source.empty() && !path_same(made.path, new_project_) &&
                          (!is_same_name(planned.source, made.path) || is_in_renamed_folder(made.path));
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

// Finds what stands beside the sources. Each folder is listed once.
class neighbourhood {
public:
    explicit neighbourhood(const resave_plan& plan) {
        for (const auto& each : plan.files) taken_.insert(path_key(each.source));
        for (const problem& each : plan.report.problems)
            if (each.kind == name_of(fact_kind::copy_failed)) taken_.insert(path_key(each.path));
    }

    void add(const wide_string& source, std::vector<resave_plan::neighbour>& found) {
        const wide_string head = path_head(source);
        for (const wide_string& name : names_in(head)[folded(path_stem(source))]) {
            const wide_string path = head + name;
            if (taken_.insert(path_key(path)).second) found.push_back({path, source});
        }
    }

private:
    using names_by_beginning = std::unordered_map<wide_string, std::vector<wide_string>>;

    // A name stands under all that is before one of its dots.
    names_by_beginning& names_in(const wide_string& folder) {
        const auto [row, is_new] = folders_.try_emplace(path_key(folder));
        if (!is_new) return row->second;
        for (const auto& entry : platform::entries_or_none(platform::operating_system(), folder)) {
            const wide_string name = entry.is_folder ? wide_string() : folded(entry.name);
            for (size_t dot = name.find(u'.'); dot != wide_string::npos; dot = name.find(u'.', dot + 1))
                row->second[name.substr(0, dot)].push_back(entry.name);
        }
        return row->second;
    }

    std::unordered_map<wide_string, names_by_beginning> folders_;
    std::unordered_set<wide_string> taken_; // path keys of what is copied, or was to be, or is reported
};

} // namespace

resave_plan plan_of(const run_state& run, resave_report report, trial_disk& disk) {
    resave_plan plan;
    plan.report = std::move(report);
    const std::vector<trial_disk::made_file> made = disk.made_files();
    const origins from(run.placement, disk);
    for (const trial_disk::made_file& each : made) {
        plan.files.push_back(from.file(each));
        plan.bytes += each.bytes;
    }
    neighbourhood beside(plan);
    for (const resave_plan::file& each : plan.files)
        if (!each.source.empty() && !path_same(each.target, run.placement.new_project_path))
            beside.add(each.source, plan.neighbours);
    const wide_string& folder = run.placement.new_folder;
    uint64_t free = 0;
    if (const platform::outcome found = disk.free_space(folder, free))
        plan.free_bytes = free;
    else
        plan.free_space_failure = found.text();
    if (plan.free_bytes && plan.bytes > free)
        add(plan.report,
            {own_kind::too_little_space,
             {},
             {},
             folder,
             platform::from_utf8(size_text(plan.bytes) + " are needed, " + size_text(free) + " are free")});
    return plan;
}

void complain_of(const resave_plan& plan) {
    print_problems(plan.report);
    if (!plan.free_bytes)
        complain("free disk space could not be determined: " + one_line(plan.free_space_failure));
}

void print_json(const resave_plan& plan) {
    ordered_json all = json_of(plan.report), neighbours = ordered_json::array();
    all["outcome"] = "would be " + plan.report.outcome;
    ordered_json& files = all["files"] = ordered_json::array();
    for (const resave_plan::file& file : plan.files)
        files.push_back({{"source", to_utf8(file.source)},
                         {"target", to_utf8(file.target)},
                         {"bytes", file.bytes},
                         {"renamed", file.renamed}});
    for (const resave_plan::neighbour& each : plan.neighbours)
        neighbours.push_back({{"file", to_utf8(each.file)}, {"beside", to_utf8(each.beside)}});
    all["neighbours_not_copied"] = std::move(neighbours);
    all["bytes"] = plan.bytes;
    all["free_bytes"] = plan.free_bytes ? ordered_json(*plan.free_bytes) : ordered_json(nullptr);
    std::cout << all.dump(2) << '\n';
}

void print_text(const resave_plan& plan, const wide_string& new_project) {
    for (const resave_plan::file& file : plan.files)
        std::cout << (file.source.empty() ? "(new)" : one_line(file.source)) << " -> "
                  << one_line(file.target) << "  " << size_text(file.bytes)
                  << (file.renamed ? "  renamed" : "") << '\n';
    for (const resave_plan::neighbour& each : plan.neighbours)
        std::cout << "stays behind: " << one_line(each.file) << ", beside " << one_line(each.beside) << '\n';
    std::cout << "would be " << plan.report.outcome << ": " << one_line(new_project) << ", "
              << plan.files.size() << " files, " << size_text(plan.bytes) << ", "
              << (plan.free_bytes ? size_text(*plan.free_bytes) : "unknown space") << " free\n";
}

} // namespace vestra::command
