// Collects the files, figures and problems that a page shows.
#include "apps/vestra_resave/report/page_facts.h"

#include <algorithm>
#include <functional>
#include <unordered_map>
#include <unordered_set>

#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

std::optional<uint64_t> size_of(const wide_string& path) {
    const platform::entry_status found = platform::current_system().status_of(path);
    return found.kind == platform::entry_kind::file ? std::optional(found.bytes) : std::nullopt;
}

std::string note_of(const problem& found) {
    const problem_words words = words_of(found);
    return words.what + (words.reason.empty() ? "" : ": " + words.reason);
}

// Adds each file to the list once, with its problem if there is one.
class file_list {
public:
    explicit file_list(const std::vector<problem>& problems) {
        for (const problem& each : problems) {
            if (is_notice(each)) continue;
            for (const wide_string& path : {each.path, each.new_path})
                if (!path.empty()) problems_.try_emplace(path_key(path), &each);
        }
    }

    void add(page_file file) {
        if (!file.target.empty() && !targets_.insert(path_key(file.target)).second) return;
        // The problem of the source overrides that of the copy: it is the cause.
        for (const wide_string& path : {file.target, file.source})
            if (const auto row = problems_.find(path_key(path)); !path.empty() && row != problems_.end())
                file.note = note_of(*row->second);
        for (const wide_string& path : {file.source, file.target})
            if (!path.empty()) known_.insert(path_key(path));
        files.push_back(std::move(file));
    }

    // Adds the file of a problem unless it is in the list already. References to services and folders are
    // skipped.
    void add(const problem& found, sentence state, wide_string page_file::*place) {
        if (native_form(found.path).empty() || !known_.insert(path_key(found.path)).second) return;
        if (platform::current_system().kind_of(found.path) == platform::entry_kind::folder) return;
        page_file file{{}, {}, size_of(found.path), state, found.element, note_of(found)};
        file.*place = found.path;
        files.push_back(std::move(file));
    }

    std::vector<page_file> files;

private:
    std::unordered_map<wide_string, const problem*> problems_; // by path key
    std::unordered_set<wide_string> known_, targets_;          // path keys
};

// Merges folders that differ only in letter case: the first spelling is used.
class folder_spellings {
public:
    wide_string apply(const wide_string& path) { return folder(path_head(path)) + path_file_name(path); }

private:
    wide_string folder(const wide_string& path) {
        // The drive or share stays as it is.
        if (path.size() <= path_fixed_length(path) + 1) return path;
        const auto known = spelled_.find(path_key(path));
        if (known != spelled_.end()) return known->second;
        const wide_string whole = path.substr(0, path.size() - 1);
        const wide_string spelled = folder(path_head(whole)) + path_file_name(whole) + path.back();
        return spelled_.emplace(path_key(path), spelled).first->second;
    }

    std::unordered_map<wide_string, wide_string> spelled_; // by path key
};

// Files that were not copied.
constexpr struct {
    std::string_view group;
    sentence state;
} uncopied[] = {
    {"lost", "lost"}, {"failed", "not copied"}, {"left_behind", "left behind"}, {"left_alone", "left alone"}};

std::vector<page_file> files_of(const ended_resave& ended) {
    const resave_report& report = ended.report;
    std::unordered_map<wide_string, sentence> earlier; // fate of earlier copies, by path key
    for (const copied_file& each : report.taken_over)
        earlier.emplace(path_key(each.target), sentence("already copied"));
    for (const copied_file& each : report.unchanged)
        earlier.emplace(path_key(each.target), sentence("unchanged"));
    for (const copied_file& each : report.replaced)
        earlier.emplace(path_key(each.target), sentence("replaced"));
    file_list list(report.problems);
    const auto add = [&](const wide_string& source, const wide_string& target, uint64_t bytes,
                         sentence state) {
        const element_name* const name = ended.names.find(source);
        list.add({source, target, bytes, state, name ? *name : element_name()});
    };
    folder_spellings spellings; // of folders that do not exist, because a trial did not create them
    for (const resave_plan::file& each : ended.plan ? ended.plan->files : ended.files) {
        const auto row = earlier.find(path_key(each.target));
        sentence state = row == earlier.end() ? "copied" : row->second;
        // In this order, as a renamed copy is more important to a reader than how it came about.
        if (each.written) state = "rewritten";
        if (each.renamed) state = "renamed";
        add(each.source, ended.plan ? spellings.apply(each.target) : each.target, each.bytes, state);
    }
    for (const copied_file& each : report.taken_over)
        add(each.source, each.target, each.bytes, sentence("already copied"));
    for (const copied_file& each : report.unchanged) add(each.source, each.target, each.bytes, "unchanged");
    for (const problem& each : report.problems)
        for (const auto& [group, state] : uncopied)
            if (group == group_of(each)) list.add(each, state, &page_file::source);
    return std::move(list.files);
}

page_tone tone_of(int exit) {
    return exit == done ? page_tone::good : exit == problems ? page_tone::warning : page_tone::bad;
}

size_t count_problems(const std::vector<problem>& all) {
    return static_cast<size_t>(std::ranges::count_if(all, std::not_fn(&is_notice)));
}

sentence state_of(const problem& found) {
    const std::string_view kind = found.kind;
    if (kind == own_kind::reference_outside) return "outside";
    if (kind == own_kind::reference_outside_and_missing) return "outside and missing";
    if (kind == own_kind::reference_empty) return "empty";
    if (kind == own_kind::unreadable) return "unreadable";
    if (kind == own_kind::manifest_size_differs || kind == own_kind::manifest_content_differs)
        return "changed";
    return "missing";
}

std::vector<page_file> files_of(const ended_verify& ended) {
    const verification& found = ended.found;
    std::vector<problem> all = found.astray;
    all.insert(all.end(), found.differing.begin(), found.differing.end());
    std::unordered_map<wide_string, sentence> states; // by path key
    for (const problem& each : all) states.try_emplace(path_key(each.path), state_of(each));
    file_list list(all);
    // The project file is no data set, so the verification does not list it.
    list.add({{}, found.project, size_of(found.project), "in place"});
    folder_spellings spellings; // the manifest has sources as projects spell them
    for (const ended_verify::file& each : ended.files) {
        const auto state = states.find(path_key(each.path));
        list.add({spellings.apply(each.source), each.path, size_of(each.path),
                  state == states.end() ? sentence("in place") : state->second, each.element});
    }
    for (const problem& each : all) list.add(each, state_of(each), &page_file::target);
    return std::move(list.files);
}

} // namespace

std::string group_of(const problem& found) {
    // All differences from the manifest are one number of the summary, and so one group.
    if (found.kind.starts_with("manifest_")) return "differing";
    const char* const count = counted_as(found);
    return count ? count : found.kind;
}

page_facts facts_of(const ended_resave& ended, const resave_request& request) {
    const resave_report& report = ended.report;
    page_facts facts;
    facts.title = ended.plan ? sentence("Dry run of a resave") : sentence("Resave");
    facts.outcome = say_known(report.outcome);
    if (ended.plan) facts.outcome = say("would be %1", {facts.outcome});
    facts.tone = tone_of(report.exit);
    facts.project = as_on_disk(platform::drive_path(request.project));
    facts.new_project = ended.target;
    const resave_summary summary = summary_of(report);
    facts.figures = {{std::to_string(summary.files), say("copies")},
                     {size_text(summary.bytes), say("in copies")},
                     {std::to_string(count_problems(report.problems)), say("problems"), "problems"}};
    for (const summary_part& part : parts_of(summary))
        facts.figures.push_back({std::to_string(part.count), part.label, part.name});
    if (ended.plan && ended.plan->free_bytes)
        facts.figures.push_back({size_text(*ended.plan->free_bytes), say("free at the new place")});
    facts.problems = report.problems;
    facts.files = files_of(ended);
    facts.choices = request.choices;
    return facts;
}

page_facts facts_of(const ended_verify& ended, const verify_request& request) {
    const verification& found = ended.found;
    page_facts facts;
    facts.title = "Verification";
    facts.outcome = outcome_text(ended);
    for (const auto* all : {&ended.problems, &found.astray, &found.differing})
        facts.problems.insert(facts.problems.end(), all->begin(), all->end());
    facts.tone = found.stopped            ? page_tone::bad
                 : facts.problems.empty() ? page_tone::good
                                          : page_tone::warning;
    facts.project = found.project;
    facts.files = files_of(ended);
    uint64_t bytes = 0;
    for (const page_file& each : facts.files) bytes += each.bytes.value_or(0);
    facts.figures = {{std::to_string(facts.files.size()), say("files")},
                     {size_text(bytes), say("in all")},
                     {std::to_string(found.references), say("references")},
                     {std::to_string(count_problems(facts.problems)), say("problems"), "problems"},
                     {std::to_string(found.astray.size()), say("broken references"), "astray"}};
    if (request.manifest)
        facts.figures.push_back(
            {std::to_string(found.differing.size()), say("different from the manifest"), "differing"});
    facts.choices = {{"--elsewhere", request.elsewhere ? "yes" : "no"},
                     {"--manifest", request.manifest ? "yes" : "no"}};
    return facts;
}

} // namespace vestra::command
