// Finds the companions of a file by name and format, and copies those of a finished run.
#include "apps/vestra_resave/companions.h"

#include <algorithm>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/folder_files.h"
#include "apps/vestra_resave/shortfalls.h"
#include "apps/vestra_resave/verification.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/datasets/gdal_source.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::folded;

namespace {

// In lower case, without the dot.
constexpr wide_view known_endings[] = {u"aih", u"ain", u"atx",     u"aux", u"aux.xml", u"clr", u"cpg", u"fbn",
                                       u"fbx", u"gfs", u"hdr",     u"imd", u"ixs",     u"lyr", u"msk", u"mxs",
                                       u"ovr", u"prj", u"qix",     u"qml", u"qpj",     u"rpb", u"rrd", u"sbn",
                                       u"sbx", u"sld", u"shp.xml", u"stx", u"vat.dbf", u"wld", u"xsd"};
// Indexes of one field; the name of the field comes before the ending.
constexpr wide_view field_indexes[] = {u".atx", u".ixs", u".mxs"};

// Files with the stem of a table or of its code page belong to the shape file.
bool is_table(const wide_string& path) {
    const wide_string extension = folded(path_extension(path));
    return extension == u".dbf" || extension == u".cpg";
}

bool is_same_content(const wide_string& source, const wide_string& target) {
    const placed_file pair{source, target};
    verification found;
    compare(
        std::span(&pair, 1), [] { return false; }, found);
    return found.differing.empty();
}

class companion_run {
public:
    companion_run(run_state& run, companion_choice which, const source_elements& elements)
        : run_(run), which_(which) {
        for (const source_elements::row& each : elements.rows())
            if (!each.file.empty()) owners_.try_emplace(path_key(each.file), &each.name);
        for (const placed_file& each : run.placement.placed) {
            if (each.old_path.empty()) continue;
            placed_.add(each.old_path, each.new_path);
            sources_.try_emplace(path_key(each.new_path), each.old_path);
        }
        for (const fact& each : run.report.facts()) // reported already
            if (each.kind == fact_kind::copy_failed) {
                sources_.try_emplace(path_key(each.new_path), each.path);
                failed_.insert(path_key(each.new_path));
            }
    }

    // Copies the companions of one copied file. Project, scene and layer files have none.
    void bring_for(const placed_file& copy) {
        if (copy.old_path.empty() || path_extension(copy.old_path).starts_with(u"._")) return;
        if (failed_.contains(path_key(copy.new_path))) return;
        copy_ = {copy.new_path, std::nullopt};
        const auto owner = owners_.find(path_key(copy.old_path));
        // What fails here is reported for the element that has the main file.
        const current_element current(run_.report, owner == owners_.end() ? element_name() : *owner->second);
        const wide_string head = path_head(copy.old_path), new_head = path_head(copy.new_path);
        const folder_files& files = folders_.files_of(head);
        // Without a list of the folder, missing companions would go unnoticed. Reported once for each folder.
        if (!files.listed() && copy_.exists() && unlisted_.insert(path_key(head)).second)
            run_.report.add(fact_kind::not_read, head, {}, files.listed().text());
        const wide_string name = path_file_name(copy.old_path), stem = path_stem(copy.old_path);
        // A share that has disconnected shows no files either, which must not be taken for a file without
        // companions.
        if (!files.find(name) && copy_.exists() && !path_exists(copy.old_path) &&
            unlisted_.insert(path_key(head)).second)
            run_.report.add(fact_kind::not_read, head, {},
                            platform::outcome(platform::failure::missing).text());
        const wide_string new_name = path_file_name(copy.new_path), new_stem = path_stem(copy.new_path);
        const auto bring_behind = [&](const wide_string& found, size_t length) {
            bring(head + found, new_head,
                  (length == stem.size() ? new_stem : new_name) + found.substr(length));
        };
        // Several files with one stem share its companions, which are brought for the first of them. A
        // renamed copy has another stem, so it gets its own.
        const bool has_stem =
            !is_table(copy.old_path) &&
            seen_.insert(path_key(head + stem) + u'|' + path_key(new_head + new_stem)).second;
        for (const companion_name& each : companions_of(files, copy.old_path, has_stem))
            if (each.is_known || (which_ == companion_choice::all && !is_placed(head + each.name)))
                bring_behind(each.name, each.begins);
        if (!has_stem) return;
        // Opening a data set is expensive, so its format is asked only about files whose names could make
        // them a part of it.
        std::vector<wide_string> near = files.belonging_to(name, stem);
        if (const wide_string* const bare = files.find(stem)) near.push_back(*bare); // as for ERS headers
        for (const wide_string& each : listed_by_format(copy.old_path, near)) bring_behind(each, stem.size());
    }

private:
    // A copy. Its existence is checked only when a companion is found.
    struct sought_copy {
        bool exists() {
            if (!is_there) is_there = path_exists(path);
            return *is_there;
        }
        wide_string path;
        std::optional<bool> is_there;
    };

    bool is_placed(const wide_string& path) const { return placed_.find(path); }

    // Returns the files in `near` that the file's format lists and no other rule copies. The format is asked
    // only if there are such files.
    std::vector<wide_string> listed_by_format(const wide_string& source,
                                              const std::vector<wide_string>& near) const {
        const wide_string head = path_head(source);
        std::unordered_map<std::string, wide_string> left;
        for (const wide_string& name : near)
            if (!is_placed(head + name)) left.emplace(platform::to_utf8(name), name);
        std::vector<wide_string> listed;
        if (left.empty() || platform::operating_system().kind_of(source) != platform::entry_kind::file)
            return listed;
        const auto native = platform::native_path(source);
        if (const auto opened = datasets::open_gdal_source(native, &near))
            for (const std::filesystem::path& file : opened->files())
                if (const auto row = left.find(file.filename().string());
                    row != left.end() && file.parent_path() == native.parent_path())
                    listed.push_back(row->second);
        return listed;
    }

    void bring(const wide_string& source, const wide_string& folder, wide_string name) {
        if (!copy_.exists()) return;
        // As the run does with all other names.
        if (run_.options.lower_case) platform::lower_in_place(name);
        const wide_string target = folder + name;
        const auto [row, is_new] = sources_.try_emplace(path_key(target), source);
        // Two main files can have the same companion, for example by stem and by format.
        if (!is_new && is_same_source(row->second, source)) return;
        if (path_exists(target)) {
            if (is_same_content(source, target))
                // Not made by this run, so a stop does not erase it.
                run_.placement.register_placed(source, target);
            else
                refuse(source, target, platform::failure::taken);
        } else if (run_.guard.claims_family(target)) {
            refuse(source, target, platform::outcome::because(u"it would belong to the source project"));
        } else if (const auto copied = platform::current_system().copy_file(source, target, false); !copied) {
            refuse(source, target, copied);
        } else {
            run_.placement.register_placed(source, target);
            run_.placement.made.add_copy(source, target);
        }
    }

    static bool is_same_source(const wide_string& one, const wide_string& other) {
        return one == other || (path_same(one, other) && platform::operating_system().same_file(one, other));
    }

    void refuse(const wide_string& source, const wide_string& target, const platform::outcome& why) {
        run_.report.add_copy_error(source, target, why);
    }

    run_state& run_;
    const companion_choice which_;
    placed_files placed_;                                         // the files placed by the run
    std::unordered_map<wide_string, wide_string> sources_;        // by the path key of the target
    std::unordered_map<wide_string, const element_name*> owners_; // by the path key of its file
    listed_folders folders_;
    sought_copy copy_;                         // the current one
    std::unordered_set<wide_string> failed_;   // path keys of copies
    std::unordered_set<wide_string> seen_;     // pairs of old and new path without extension
    std::unordered_set<wide_string> unlisted_; // path keys of folders
};

} // namespace

bool is_known_companion(wide_view rest) {
    const wide_string text = folded(wide_string(rest));
    if (std::ranges::find(known_endings, text) != std::end(known_endings)) return true;
    if (std::ranges::any_of(field_indexes, [&](wide_view each) { return text.ends_with(each); })) return true;
    // A companion can have companions itself.
    const size_t dot = text.find(u'.');
    return dot != wide_string::npos &&
           std::ranges::find(known_endings, text.substr(0, dot)) != std::end(known_endings) &&
           is_known_companion(text.substr(dot + 1));
}

std::vector<wide_string> world_endings(wide_view extension) {
    if (extension.size() < 3) return {};
    const wide_string text = folded(wide_string(extension.substr(1)));
    return {wide_string{text.front(), text.back(), u'w'}, text + u'w'};
}

std::vector<companion_name> companions_of(const folder_files& files, const wide_string& path, bool has_stem) {
    const wide_string name = path_file_name(path), stem = path_stem(path);
    std::vector<companion_name> found;
    const auto add_behind = [&](const wide_string& beginning, bool is_description) {
        for (const wide_string& each : files.belonging_to(name, beginning)) {
            const wide_view rest = wide_view(each).substr(beginning.size() + 1);
            const bool is_known =
                is_known_companion(rest) || (is_description && folded(wide_string(rest)) == u"xml");
            found.push_back({each, beginning.size(), is_known});
        }
    };
    // A file whose name begins with the full name of another file can describe it.
    add_behind(name, true);
    if (is_table(path)) return found;
    for (const wide_string& ending : world_endings(path_extension(path)))
        if (const wide_string* world = files.find(path_replace_extension(stem + u'.', ending)))
            found.push_back({*world, stem.size()});
    if (has_stem && stem != name) add_behind(stem, false);
    return found;
}

std::vector<wide_string> family_of(const wide_string& path, const folder_files& files) {
    std::vector<wide_string> all;
    const auto add = [&](const wide_string& found) {
        if (std::ranges::find(all, found) == all.end()) all.push_back(found);
    };
    for (const companion_name& each : companions_of(files, path, true))
        if (each.is_known) add(each.name);
    // Also those that the bundle copies by name.
    std::vector<wide_string> others = partners_of(path);
    others.push_back(projection_file_name(path));
    for (const wide_view log : {u"-wal", u"-journal"}) others.push_back(path + wide_string(log));
    const wide_string extension = folded(path_extension(path));
    if (extension == u".dbf") others.push_back(path_replace_extension(path, u".cpg"));
    if (extension == u".shp") others.push_back(path_replace_extension(path, u".dbf"));
    for (const char16_t last : {u'w', u'r'})
        if (extension.size() > 2)
            others.push_back(path_replace_extension(path, world_extension(path) + last));
    for (const wide_string& other : others)
        if (const wide_string* found = files.find(path_file_name(other))) add(*found);
    return all;
}

run_result bring_companions(project_context& run, companion_choice which, const source_elements& elements,
                            const std::vector<wide_string>& source_paths, run_result result) {
    // The run has cleared the register from which the guard knows them. Needed even without companions, since
    // later steps ask the guard, too.
    for (const wide_string& path : source_paths) run.guard.add(path);
    if (which == companion_choice::none || result.end != run_end::done || !result.written) return result;
    companion_run all(run, which, elements);
    const size_t count = run.placement.placed.size(); // companions have none themselves
    run.progress.start(static_cast<uint32_t>(count));
    run.progress.set_caption(platform::from_utf8(say("Copying companions")));
    run.progress.show();
    for (size_t index = 0; index < count && !run.progress.is_stopped(); ++index) {
        // A copy of the entry, because companions are placed as well.
        all.bring_for(placed_file(run.placement.placed[index]));
        run.progress.advance(1);
    }
    if (run.progress.is_stopped()) {
        // Erases everything that the run made, companions included, if the user wants that.
        run.on_stopped();
        result.end = run_end::stopped;
        result.written = !run.progress.erase_created;
    }
    run.progress.finish();
    return result;
}

} // namespace vestra::command
