// Copies the families of files. A family is copied as far as possible: a failed companion is recorded and the
// next one is tried, since most data can be used without it.

#include "core/copying.h"

#include <algorithm>
#include <stdexcept>

#include "core/data_source.h"
#include "operations/run/path_files.h"
#include "operations/run/run_state.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vs::project_resave {

namespace {

platform::outcome copy_file(const wide_string& source, const wide_string& target, bool replace = false) {
    return platform::current_system().copy_file(source, target, replace);
}

wide_string folder_of_same_stem(const wide_string& path) { return path_head(path) + path_stem(path); }

bool copy_if_there(const wide_string& source, const wide_string& target, run_state& run) {
    return !path_exists(source) || copy_one(source, target, run);
}

// Kept as users know it: unlike for projection files, nothing checks whether the file was copied before.
// If it was, the second copy fails and is reported.
void copy_code_page_file(const wide_string& source, const wide_string& target, run_state& run) {
    copy_if_there(path_replace_extension(source, u".cpg"), path_replace_extension(target, u".cpg"), run);
}

void copy_overview_file(const wide_string& source, const wide_string& target, run_state& run) {
    copy_if_there(source + u".ovr", target + u".ovr", run);
}

// Copies the existing ones of the world file and its sibling, up to the first failure.
void copy_world_files(const wide_string& source, const wide_string& target, run_state& run) {
    const wide_string extension = world_extension(source);
    for (const char16_t last : {u'w', u'r'}) {
        const wide_string companion = path_replace_extension(source, extension + last);
        if (!copy_if_there(companion, path_replace_extension(target, extension + last), run)) return;
    }
}

// Copies the logs that hold changes which the database file does not contain yet.
void copy_database_logs(const wide_string& source, const wide_string& target, run_state& run) {
    for (const wide_view log : {u"-wal", u"-journal"})
        if (const wide_string from = source + wide_string(log); !run.placement.is_placed(from))
            copy_if_there(from, target + wide_string(log), run);
}

// Replaces every occurrence, since the name of a member may repeat the stem.
wide_string replaced(wide_string text, const wide_string& from, const wide_string& to) {
    if (from.empty()) return text;
    for (size_t at = text.find(from); at != wide_string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

// Returns the name of a member next to its renamed main file. Only a TOS file stores the names of its
// members: those with its own stem by their extension only, so they follow the new stem. Any other member
// keeps its name.
wide_string member_name(const wide_string& name, const wide_string& from, const wide_string& to,
                        bool of_tos) {
    if (!of_tos) return replaced(path_stem(name), from, to) + path_extension(name);
    const bool is_of_stem = platform::folded(name).starts_with(platform::folded(from) + u'.');
    return is_of_stem ? to + name.substr(from.size()) : name;
}

// A renamed file that stores the names of other files still stores the old names. The files of these names
// may exist and belong to another data set.
void report_foreign_members(const wide_string& source, const std::vector<wide_string>& own,
                            const wide_string& target, run_state& run) {
    std::vector<wide_string> members;
    if (!data_source_files(target, members)) return;
    for (const wide_string& member : members) {
        const wide_string* const from = run.placement.made.source_of(member);
        // What the run copied from this data set is its own, even under a new name.
        const bool is_own = from && (*from == source || std::ranges::find(own, *from) != own.end());
        if (!is_own && path_exists(member)) run.report.add(fact_kind::reads_other, source, target, member);
    }
}

// A member's place can be in a folder below that of the main file, which does not exist yet. Nothing is
// created outside the new project's folder.
void make_folder_of(const wide_string& path, run_state& run) {
    if (!path_key(path).starts_with(path_key(run.placement.new_folder) + u'\\')) return;
    std::vector<wide_string> levels;
    create_folders(path_head(path), &levels);
    for (const wide_string& level : levels) run.placement.made.add_folder(level);
}

// Copies a member that was already copied elsewhere to the place where its main file looks for it.
void copy_again(const wide_string& source, const wide_string& target, run_state& run) {
    const wide_string* const there = run.placement.made.source_of(target);
    if (there && *there == source) return;
    if (const platform::outcome copied = copy_file(source, target))
        run.placement.made.add_copy(source, target);
    else
        record_copy_failure(run, {source, target, copied});
}

} // namespace

void record_copy_failure(run_state& run, const failed_copy& failed, const wide_string& shown) {
    // If the folder could not be created, that is the reason why the file could not be copied.
    const platform::outcome folder = run.placement.folder_failure(failed.new_path);
    const bool lacks_folder = !folder && !path_exists(path_head(failed.new_path));
    const wide_string& path = shown.empty() ? failed.path : shown;
    run.report.add_copy_error(failed.path, failed.new_path, lacks_folder ? folder : failed.why, path);
    run.log.copy_failed(path);
}

void record_lost_source(run_state& run, const wide_string& path, const wide_string& subject) {
    run.log.file_missing(path);
    const platform::outcome why = platform::current_system().status_of(path).reason;
    run.report.add_lost_source(path, subject,
                               why.is(platform::failure::missing) ? wide_string() : why.text());
}

void record_no_place(run_state& run, const wide_string& path, const wide_string& logged) {
    run.log.new_name_failed(logged);
    run.report.add(fact_kind::no_place, path);
}

bool copy_one(const wide_string& source, const wide_string& target, run_state& run) {
    const platform::outcome copied = copy_file(source, target);
    if (copied) {
        run.placement.register_placed(source, target);
        run.placement.made.add_copy(source, target);
    } else {
        record_copy_failure(run, {source, target, copied});
    }
    return static_cast<bool>(copied);
}

bool copy_table(const wide_string& source, const wide_string& target, run_state& run) {
    copy_one(source, target, run);
    copy_code_page_file(source, target, run);
    return true;
}

bool copy_table_and_joins(vs_attr_data* attr_data, const wide_string& source, const wide_string& target,
                          run_state& run) {
    copy_table(source, target, run);
    take_joins_off(attr_data, run);
    return true;
}

bool copy_shape_family(const wide_string& source, const wide_string& target, vs_attr_data* attr_data,
                       run_state& run) {
    // Kept as users know it: a missing ".shx" counts as a failed copy, although the layer is saved without
    // it.
    copy_one(source, target, run);
    copy_one(path_replace_extension(source, u".shx"), path_replace_extension(target, u".shx"), run);
    if (attr_data)
        copy_table_and_joins(attr_data, path_replace_extension(source, u".dbf"),
                             path_replace_extension(target, u".dbf"), run);
    copy_projection_file(source, target, run);
    return true;
}

bool copy_projection_file(const wide_string& source, const wide_string& target, run_state& run) {
    const wide_string companion = projection_file_name(source);
    if (!path_exists(companion) || run.placement.is_placed(companion)) return true;
    return copy_one(companion, projection_file_name(target), run);
}

bool copy_raster_family(const wide_string& source, const wide_string& target, run_state& run) {
    copy_one(source, target, run);
    copy_database_logs(source, target, run);
    copy_overview_file(source, target, run);
    copy_world_files(source, target, run);
    copy_projection_file(source, target, run);
    return true;
}

bool copy_file_and_projection(const wide_string& source, const wide_string& target, run_state& run) {
    copy_one(source, target, run);
    copy_database_logs(source, target, run);
    copy_projection_file(source, target, run);
    return true;
}

bool copy_data_set(const wide_string& source, const wide_string& target, run_state& run) {
    copy_one(source, target, run);
    if (!copy_data_source_files(source, target, false, run)) run.report.add(fact_kind::not_read, source);
    copy_projection_file(source, target, run);
    return true;
}

bool copy_data_source_files(const wide_string& source, const wide_string& target, bool of_tos,
                            run_state& run) {
    std::vector<wide_string> members;
    if (!data_source_files(source, members)) return false;

    const wide_string source_folder = path_head(source);
    const wide_string target_folder = path_head(target);
    const wide_string source_stem = path_stem(source);
    const wide_string target_stem = path_stem(target);
    for (const wide_string& member : members) {
        wide_string place = path_join(target_folder, path_relative(source_folder, member));
        if (source_stem != target_stem)
            place = path_head(place) + member_name(path_file_name(place), source_stem, target_stem, of_tos);
        // A TOS file stores the names of its members, so their letter case must stay.
        if (run.options.lower_case && !of_tos) platform::lower_in_place(place);
        // The main file itself is one of the members and was usually copied just before.
        const wide_string placed = run.placement.lookup_placed(member);
        const bool is_again = !placed.empty() && of_tos && !path_same(placed, place);
        if (!placed.empty() && !is_again) continue;
        make_folder_of(place, run);
        if (is_again)
            copy_again(member, place, run);
        else
            copy_one(member, place, run);
    }
    if (source_stem != target_stem) report_foreign_members(source, members, target, run);
    return true;
}

bool copy_tos_files(const wide_string& source, const wide_string& target, run_state& run) {
    const bool is_read = copy_data_source_files(source, target, true, run);
    if (!is_read) run.report.add(fact_kind::not_read, source);
    return is_read;
}

bool copy_file_and_folder(const wide_string& source, const wide_string& target, run_state& run) {
    if (const platform::outcome copied = copy_file(source, target); !copied) {
        record_copy_failure(run, {source, target, copied});
        return true;
    }
    run.placement.made.add_copy(source, target);
    const wide_string folder = folder_of_same_stem(source);
    if (path_exists(folder)) {
        const wide_string new_folder = folder_of_same_stem(target);
        if (const auto failed = copy_folder(folder, new_folder, false, false, run)) {
            run.report.add_copy_error(failed->path, failed->new_path, failed->why, source);
            run.log.copy_failed(folder);
        } else {
            run.placement.register_placed(folder, new_folder);
        }
    }
    run.placement.register_placed(source, target);
    return true;
}

bool copy_data_folder(const wide_string& source, const wide_string& target, run_state& run) {
    if (const auto failed = copy_folder(source, target, false, false, run))
        record_copy_failure(run, *failed, source);
    else
        run.placement.register_placed(source, target);
    return true;
}

std::optional<failed_copy> copy_folder(const wide_string& source, const wide_string& target,
                                       bool allow_existing_target, bool overwrite_files, run_state& run) {
    const wide_string from = path_with_separator(source);
    const wide_string to = path_with_separator(target);
    // Two data sets must not be mixed in one folder.
    if (!allow_existing_target && path_exists(target))
        return failed_copy{source, target, platform::failure::taken};
    std::vector<platform::unread_folder> unread;
    const auto entries = platform::list_tree(platform::current_system(), from, &unread);
    const auto place_of = [&](const wide_string& path) { return to + path_relative(from, path); };
    // If the folder itself cannot be listed, there is nothing to copy.
    if (!unread.empty() && unread.front().path == from)
        return failed_copy{source, target, unread.front().reason};
    made_files& made = run.placement.made;
    made.add_data_set(to);
    const auto create = [&](const wide_string& folder) {
        std::vector<wide_string> levels;
        platform::outcome created = create_folders(folder, &levels);
        for (const wide_string& level : levels) made.add_folder(level);
        return created;
    };
    if (const platform::outcome created = create(to); !created) return failed_copy{source, target, created};
    for (const auto& entry : entries) {
        const wide_string place = place_of(entry.path);
        platform::outcome done = create(entry.is_folder ? place : path_head(place));
        if (done && !entry.is_folder) {
            // Even with `overwrite_files`, neither a file of the source nor a copy of this run is replaced.
            const bool replaces = overwrite_files && !run.guard.protects(place) && !made.is_copy(place);
            done = copy_file(entry.path, place, replaces);
            if (done) made.add_copy(entry.path, place);
        }
        if (!done) return failed_copy{entry.path, place, done};
    }
    if (unread.empty()) return std::nullopt;
    return failed_copy{unread.front().path, place_of(unread.front().path), unread.front().reason};
}

} // namespace vs::project_resave
