// Compares the source project with the new one and reports what is missing or wrong although no step failed.
#include "apps/vestra_resave/shortfalls.h"

#include <algorithm>

#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/folder_files.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/datasets/gdal_source.h"

namespace vestra::command {

using namespace vs::project_resave;

source_elements::source_elements(project_context& context) {
    for (const element& each : elements_of(context)) add(each, {}, false, context.selection);
}

void source_elements::add(const element& each, const wide_string& list, bool is_out,
                          const selection_register& selection) {
    const bool is_each_out = is_out || !selection.is_selected(each.uuid);
    const size_t index = rows_.size();
    rows_.push_back({{each.uuid, each.caption, list}, each.kind, {}, 0});
    // A lost file is reported by the run.
    if (each.exists.value_or(false)) rows_.back().file = path_in(each.file).value();
    if (!each.uuid.empty()) {
        by_uuid_.emplace(each.uuid, index);
        if (is_each_out) left_out_.insert(each.uuid);
    }
    // A group is not a list: its members belong to the scene.
    const wide_string& list_inside = each.kind == "group" ? list : each.caption;
    for (const element& member : each.children) add(member, list_inside, is_each_out, selection);
    rows_[index].end = rows_.size();
}

const source_elements::row* source_elements::find(const wide_string& uuid) const {
    const auto found = by_uuid_.find(uuid);
    return found == by_uuid_.end() ? nullptr : &rows_[found->second];
}

namespace {

// Finds files with the name of a copied one in the same folder. Each folder is listed once.
class neighbourhood {
public:
    // Files of elements are accounted for by their elements.
    neighbourhood(const source_elements& source, const resave_report& report) {
        for (const source_elements::row& each : source.rows()) take(each.file);
        // A folder that was copied as a whole is only in `files`, what is in it only in `copies`.
        for (const auto* files : {&report.copies, &report.files})
            for (const copied_file& each : *files)
                for (const wide_string& path : {each.source, each.target}) take(path);
        for (const problem& each : report.problems)
            if (each.kind == name_of(fact_kind::copy_failed)) take(each.path);
    }

    void add_to(resave_report& report, const wide_string& copied) {
        const wide_string head = path_head(copied), stem = path_stem(copied);
        if (!seen_.insert(path_key(head + stem)).second) return;
        const folder_files& files = folders_.files_of(head);
        for (const wide_string& name : files.beginning_with(stem))
            if (take(head + name, files.has_twin(name)))
                add(report, {own_kind::left_behind,
                             {},
                             head + name,
                             {},
                             platform::from_utf8(say("it is next to %1", {printed(copied)}))});
    }

private:
    // Returns true at the first call for a path. If `has_twin`, names that differ only in letter case are
    // different files.
    bool take(const wide_string& path, bool has_twin = false) {
        const bool is_new = taken_.insert(path_key(path)).second;
        const bool is_new_spelling = spelled_.insert(path_key(path_head(path)) + path_file_name(path)).second;
        return has_twin ? is_new_spelling : is_new;
    }

    listed_folders folders_;
    // Files that were copied, should have been copied, or are reported: path keys, and those with exact
    // names.
    std::unordered_set<wide_string> taken_, spelled_;
    std::unordered_set<wide_string> seen_; // path keys of folder and stem
};

void add_left_behind(const source_elements& source, const wide_string& new_project, resave_report& report) {
    neighbourhood beside(source, report);
    for (const auto* files : {&report.copies, &report.files})
        for (const copied_file& each : *files)
            // The source project is not data: files with its stem, such as backups, do not belong to the
            // copy.
            if (!path_same(each.target, new_project)) beside.add_to(report, each.source);
}

wide_string key_of(const wide_string& uuid, const wide_string& path) { return uuid + u'\n' + path_key(path); }

// Filters the findings of the check of the new project: skips what another problem reports already and a
// second occurrence of the same reference in one element.
class astray_sorter {
public:
    astray_sorter(const source_elements& source, resave_report& report) : source_(source), report_(report) {
        for (const problem& each : report.problems) {
            // A file that was not written is missed by every element that uses it.
            if (each.kind == name_of(fact_kind::not_written)) known_.insert(key_of({}, each.new_path));
            for (const wide_string& path : {each.path, each.new_path})
                if (!path.empty()) known_.insert(key_of(each.element.uuid, path));
        }
        for (const copied_file& each : report.copies) copied_.insert(path_key(each.source));
    }

    void sort(std::vector<problem> all) {
        for (problem& each : all) {
            // Explained by a problem without an element, for each element that refers to the file.
            if (known_.contains(key_of({}, each.path))) continue;
            if (!known_.insert(key_of(each.element.uuid, each.path)).second) continue;
            if (const source_elements::row* const row = left_alone(each)) {
                if (known_.insert(key_of(row->name.uuid, row->file)).second ||
                    path_same(row->file, each.path))
                    add(report_, {own_kind::left_alone, row->name, row->file, {}});
                continue;
            }
            add(report_, each);
            report_.found.astray.push_back(std::move(each));
        }
    }

private:
    // Returns the element if its file exists but was not copied although the element was.
    const source_elements::row* left_alone(const problem& found) const {
        const source_elements::row* const row = source_.find(found.element.uuid);
        if (!row || row->file.empty() || found.kind == own_kind::unreadable) return nullptr;
        return path_same(row->file, found.path) || !copied_.contains(path_key(row->file)) ? row : nullptr;
    }

    const source_elements& source_;
    resave_report& report_;
    std::unordered_set<wide_string> known_;  // keys of element and path
    std::unordered_set<wide_string> copied_; // path keys
};

// Finds copies that read a different file than their source does: one that another data set brought under the
// same name, or that existed before.
class foreign_files {
public:
    foreign_files(const path_placement& placement, resave_report& report) : report_(report) {
        for (const placed_file& each : placement.placed)
            if (!each.old_path.empty()) sources_.insert_or_assign(path_key(each.new_path), each.old_path);
        for (const made_file& each : placement.made.files())
            if (!each.source.empty()) sources_.insert_or_assign(path_key(each.path), each.source);
        for (const problem& each : report.problems)
            if (each.kind == name_of(fact_kind::reads_other))
                known_.insert(key_of(each.new_path, each.reason));
    }

    void look_at(const element_name& element, const wide_string& copy,
                 const std::vector<wide_string>& files) {
        const wide_string* const source = source_of(copy);
        if (!source) return;
        std::vector<wide_string> strange = files;
        std::erase_if(strange, [&](const wide_string& file) {
            const wide_string* const from = source_of(file);
            return from && is_next_to(*source, *from);
        });
        // Cheap so far. Only now the data sets are opened, to see whether they really read these files.
        if (strange.empty()) return;
        const auto own = files_read_by(*source), read = files_read_by(copy);
        for (const wide_string& file : strange) {
            const wide_string* const from = source_of(file);
            const bool is_own = from && own.contains(path_key(*from));
            const wide_string reason = platform::from_utf8(printed(file));
            // Strange only if the copy reads the file and the source does not read the file that it was
            // copied from.
            if (!is_own && read.contains(path_key(file)) && known_.insert(key_of(copy, reason)).second)
                found_.push_back({name_of(fact_kind::reads_other), element, *source, copy, reason});
        }
    }

    void report() {
        for (problem& each : found_) add(report_, std::move(each));
    }

private:
    const wide_string* source_of(const wide_string& path) const {
        const auto row = sources_.find(path_key(path));
        return row == sources_.end() ? nullptr : &row->second;
    }

    // A file with the same stem in the same folder is also read by the source.
    static bool is_next_to(const wide_string& source, const wide_string& other) {
        const wide_string family = path_key(path_head(source) + path_stem(source)) + u'.';
        return path_key(other).starts_with(family) && path_same(path_head(source), path_head(other));
    }

    // Returns the path keys of the files that the data set refers to or that its format lists. If no format
    // knows it, files with its stem would be listed as members, but nothing reads them.
    static std::unordered_set<wide_string> files_read_by(const wide_string& path) {
        std::unordered_set<wide_string> keys;
        for (const auto& each : virtual_sources(path)) keys.insert(path_key(each.path));
        if (datasets::open_gdal_source(platform::native_path(path)))
            for (const auto& each : files_of_data_set(path).files) keys.insert(path_key(each.path));
        return keys;
    }

    resave_report& report_;
    std::unordered_map<wide_string, wide_string> sources_; // by path key of the copy
    std::unordered_set<wide_string> known_;
    std::vector<problem> found_;
};

void add_uuids(const std::vector<element>& elements, std::unordered_set<wide_string>& all) {
    for (const element& each : elements) {
        all.insert(each.uuid);
        add_uuids(each.children, all);
    }
}

// Adds each element that is missing in the new project, without its children. Elements that were left out, or
// removed because their source is lost, are not reported.
void add_dropped(const source_elements& source, project_context& context, const wide_string& reason,
                 resave_report& report) {
    // Contains the empty uuid, because elements without one cannot be compared.
    std::unordered_set<wide_string> excused{wide_string()};
    add_uuids(elements_of(context), excused);
    for (const problem& each : report.problems)
        if (each.kind == name_of(fact_kind::source_lost)) excused.insert(each.element.uuid);
    for (size_t index = 0; index < source.rows().size();) {
        const source_elements::row& each = source.rows()[index];
        const bool is_missed =
            !excused.contains(each.name.uuid) && !source.is_left_out(each.name.uuid) && each.kind != "page";
        if (is_missed) add(report, {own_kind::dropped, each.name, {}, {}, reason});
        // With a missing scene its layers are missing as well; they get no lines.
        index = is_missed ? each.end : index + 1;
    }
}

// Adds problems of loading the new project, except those that are already reported for the source.
void add_load_problems(const std::vector<problem>& all, resave_report& report) {
    std::unordered_set<wide_string> known;
    for (const problem& each : report.problems) known.insert(key_of(each));
    for (const problem& each : all) // the check of the references finds these too
        if (each.kind != own_kind::unreadable && !known.contains(key_of(each))) add(report, each);
}

} // namespace

void add_shortfalls(session& host, const source_elements& source, const resave_request& request,
                    resave_report& report) {
    project_context& context = host.context();
    const wide_string project = context.placement.new_project_path;
    const wide_string reason = request.settings.structure_variant == folder_per_scene
                                   ? u"the structure folder-per-scene saves only scenes"
                                   : u"";
    add_left_behind(source, project, report);
    std::vector<placed_file> copies;
    std::vector<wide_string> made;
    for (const placed_file& each : context.placement.placed) {
        made.push_back(each.new_path);
        if (!each.old_path.empty() && each.new_path != project) copies.push_back(each);
    }
    const auto is_stopped = [&] { return host.interrupted(); };
    verification& found = report.found;
    // Collected before the load, which discards the placement.
    foreign_files foreign(context.placement, report);
    if (const std::optional<refusal> early = host.load(project, false, false)) {
        // A new project that cannot be loaded is a problem of the resave; the comparison of the copies is
        // still made.
        found.stopped = early->exit == stopped;
        if (!found.stopped)
            for (const problem& each : early->problems) add(report, each);
    } else {
        add_load_problems(host.reading_problems(), report);
        const auto look_at = [&](const element_name& element, const wide_string& path,
                                 const std::vector<wide_string>& files) {
            foreign.look_at(element, path, files);
        };
        verify(context, made, {.elsewhere = false, .on_data_set = look_at}, is_stopped, found);
        foreign.report();
        astray_sorter(source, report).sort(std::exchange(found.astray, {}));
        add_dropped(source, context, reason, report);
    }
    const bool is_verified = request.verify && !found.stopped;
    if (is_verified) {
        const shown_transfer shown(host.screen(), summary_of(report).bytes, comparing_caption());
        compare(copies, is_stopped, found);
    }
    for (const problem& each : found.differing) add(report, each);
    if (!found.stopped) return;
    add(report, {own_kind::interrupted,
                 {},
                 {},
                 {},
                 is_verified ? u"the verification was interrupted"
                             : u"the check of the new project was interrupted"});
    // The project is saved, so the outcome stays, but it was not checked as requested.
    report.exit = stopped;
}

} // namespace vestra::command
