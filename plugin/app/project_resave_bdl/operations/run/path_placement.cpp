// Rules for the new place of a file under each structure of folders, and for names that are already taken.

#include "operations/run/path_placement.h"

#include "framework/resources/strings.h"
#include "logs/log_file.h"
#include "operations/run/path_files.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_progress.h"
#include "operations/run/run_questions.h"
#include "operations/run/run_report.h"
#include "operations/run/source_guard.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vs::project_resave {

namespace {

bool leads_upwards(wide_view relative) {
    return relative.size() >= 3 && relative.starts_with(u"..") && is_separator(relative[2]);
}

bool leads_outside(wide_view relative) {
    return !path_is_relative(relative) || held_below(relative) != relative;
}

wide_string strip_parents(wide_string relative) {
    size_t behind = 0;
    while (leads_upwards(wide_view(relative).substr(behind))) behind += 3;
    return relative.erase(0, behind);
}

wide_string without_drive(const wide_string& path) {
    const std::vector<wide_string> pieces = path_split(path, path_separators, true);
    wide_string result;
    for (size_t i = path_root(path).empty() ? 0 : 1; i < pieces.size(); ++i)
        result = path_join(result, pieces[i]);
    return result;
}

// The common folder is passed as the base, which counts as a file: so the name of the common folder itself
// becomes a part of the new path.
wide_string place_under_common(common_directory& files, const wide_string& base, const wide_string& source) {
    if (!files.computed) files.compute();
    if (source.empty()) return {};
    wide_string relative = path_relative(files.drives[path_root(source)].common, source);
    if (!path_is_relative(relative)) relative = without_drive(relative);
    return path_resolve(base, relative);
}

wide_string numbered_name(const wide_string& path, uint32_t number) {
    const wide_string suffix = u"_(" + decimal(number) + u")";
    return path_join(path_head(path), path_stem(path) + suffix + path_extension(path));
}

// The folder is numbered, and the grid gets the folder's name.
wide_string numbered_grid(const wide_string& path, uint32_t number) {
    wide_string folder = path_head(path);
    if (!folder.empty()) folder.pop_back();
    const wide_string name = path_stem(folder) + u"_(" + decimal(number) + u")";
    return path_join(path_join(path_head(folder), name), name).append(own_folder_extension);
}

} // namespace

void path_placement::reset() {
    placed.clear();
    created_folders.clear();
    made.clear();
    common.clear();
    clear_scene();
    last_numbers_.clear();
    homes_.clear();
    set_homes_.clear();
    folder_failures_.clear();
}

void path_placement::set_source(const wide_string& path) {
    reset();
    source_project_path = path;
    source_folder = path_head(path);
}

void path_placement::set_output(const wide_string& path) {
    reset();
    new_project_path = path;
    new_folder = path_head(path);
    log_path = new_folder + path_stem(path) + load_string(text::log_name_suffix);
}

const placed_files& path_placement::register_in_force() const {
    return options->structure_variant == folder_per_scene ? scene_placed : placed;
}

wide_string path_placement::lookup_placed(const wide_string& source) const {
    const placed_file* found = register_in_force().find(source);
    return found ? found->new_path : wide_string();
}

bool path_placement::is_placed(const wide_string& source) const { return register_in_force().find(source); }

void path_placement::register_placed(const wide_string& old_path, const wide_string& new_path) {
    placed.add(old_path, new_path);
    if (options->structure_variant == folder_per_scene) scene_placed.add(old_path, new_path);
}

// The new project and its log are written last, so their names are taken from the beginning. The name of a
// companion of a source file is taken even if that does not exist.
bool path_placement::is_taken(const wide_string& path) const {
    return path_exists(path) || path_same(path, new_project_path) || path_same(path, log_path) ||
           (guard && guard->claims_family(path));
}

wide_string path_placement::new_path(const wide_string& source) {
    wide_string result = place(source);
    // Lowers the whole path, including the part that the user entered. This comes before the look at the
    // disk, so that names are compared as they will be.
    if (options->lower_case) platform::lower_in_place(result);
    // A resumed run keeps the place of an earlier run. Whatever the reason for another place is, it is
    // reported.
    const wide_string wanted = result;
    if (progress) result = progress->questions->kept_place(source, result);
    result = beside_data_sets(result);
    const bool is_folder_taken =
        has_own_folder(result) &&
        !platform::entries_or_none(platform::current_system(), path_head(result)).empty();
    if (is_folder_taken || is_taken(result)) result = resolve_conflict(result, source);
    if (result != wanted) {
        log->file_renamed(source, result);
        report->add(fact_kind::renamed, source, result);
    }
    if (progress) progress->questions->place_found();
    const wide_string folder = path_head(result);
    if (has_own_folder(result)) made.add_data_set(folder);
    if (!path_exists(folder)) {
        std::vector<wide_string> levels; // the drive or share is never ours to create
        // The reason is kept for the copy, which fails next and is reported.
        if (const platform::outcome failed = create_folders(folder, &levels); !failed)
            folder_failures_.insert_or_assign(path_key(folder), failed);
        created_folders.insert(created_folders.end(), levels.rbegin(), levels.rend());
    }
    return result;
}

platform::outcome path_placement::folder_failure(const wide_string& path) const {
    if (folder_failures_.empty()) return {};
    const auto row = folder_failures_.find(path_key(path_head(path)));
    return row != folder_failures_.end() ? row->second : platform::outcome();
}

wide_string path_placement::folder_for(const wide_string& source) {
    switch (options->structure_variant) {
    case by_type:
        return path_join(new_folder, type_folder);
    case from_project_folder: {
        const wide_string relative = path_relative(source_folder, source);
        const bool has_drive = !path_root(relative).empty();
        return path_join(new_folder, has_drive ? relative.substr(2) : strip_parents(relative));
    }
    default:
        return place(source);
    }
}

wide_string path_placement::place(const wide_string& source) {
    switch (options->structure_variant) {
    case by_type:
        return in_type_folder(source);
    case from_project_folder:
        return place_from_project_folder(source);
    case project_tree_else_type:
        return place_inside_or_by_type(source);
    case from_common_top:
        return place_under_common(common, new_folder, source);
    case folder_per_scene:
        return place_in_scene_folder(source);
    default:
        return {};
    }
}

wide_string path_placement::place_from_project_folder(const wide_string& source) const {
    wide_string relative = path_relative(source_folder, source);
    // If the text is unchanged, the file is on another drive: remove "X:\".
    relative = relative == source ? relative.erase(0, 3) : strip_parents(relative);
    return path_join(new_folder, relative);
}

wide_string path_placement::place_inside_or_by_type(const wide_string& source) const {
    const wide_string relative = path_relative(source_folder, source);
    if (relative == source || leads_upwards(relative)) return in_type_folder(source);
    return path_join(new_folder, relative);
}

wide_string path_placement::in_type_folder(const wide_string& source) const {
    wide_string folder = path_join(new_folder, type_folder);
    if (path_extension(source) == own_folder_extension) folder = path_join(folder, path_stem(source));
    return path_join(folder, path_file_name(source));
}

wide_string path_placement::place_in_scene_folder(const wide_string& source) {
    const wide_string base = scene_folder.empty() ? new_folder : path_join(new_folder, scene_folder) + u'\\';
    return place_under_common(scene_common ? *scene_common : common, base, source);
}

// A folder that is one data set, of the source or copied in this run, takes no other file: a reader of the
// data set would read that file, too. A file that would be placed in it goes to a numbered folder next to it.
wide_string path_placement::beside_data_sets(const wide_string& path) {
    const bool own_folder = path_extension(path) == own_folder_extension;
    const wide_string first = own_folder ? path_head(path_normalise(path_head(path))) : path_head(path);
    const auto [home, is_new] = homes_.try_emplace(path_key(first));
    if (is_new) {
        wide_string set; // the topmost data set above the file
        for (wide_string level = path_normalise(first); path_with_separator(level).size() > new_folder.size();
             level = path_normalise(path_head(level)))
            if (made.is_data_set(level) || (guard && path_exists(level) && guard->is_inside(level)))
                set = level;
        if (!set.empty()) {
            wide_string& other = set_homes_[path_key(set)];
            if (other.empty()) other = numbered_folder(set);
            home->second = other + first.substr(set.size());
        }
    }
    return home->second.empty() ? path : home->second + path.substr(first.size());
}

wide_string path_placement::numbered_folder(const wide_string& path) {
    wide_string candidate;
    for (uint32_t number = 1; candidate.empty() || path_exists(candidate); ++number)
        candidate = path_head(path) + path_file_name(path) + u"_(" + decimal(number) + u")";
    return candidate;
}

wide_string path_placement::resolve_conflict(const wide_string& path, const wide_string& source) {
    if (!options->rename_on_conflict) {
        // Without an answer the next free name is used.
        const unique_name_answer answer = progress->questions->new_name(source, path);
        // Kept as users know it: a path from the dialog is used as typed, even outside the new project's
        // folder.
        if (answer.accepted && !answer.path.empty()) return answer.path;
    }
    return next_free_name(path);
}

wide_string path_placement::next_free_name(const wide_string& path, bool is_written) {
    const bool own_folder = path_extension(path) == own_folder_extension;
    const auto taken = [&](const wide_string& name) {
        if (is_written && (is_name_taken(name) || (guard && guard->protects(name)))) return true;
        return own_folder ? path_exists(path_head(name)) : is_taken(name);
    };
    const auto numbered = own_folder ? &numbered_grid : &numbered_name;
    if (!taken(path)) return path;

    // Numbers below the last one used are known to be taken. The last one may be free again if its copy
    // failed.
    uint32_t& number = last_numbers_.try_emplace(path, 1).first->second;
    wide_string candidate = numbered(path, number);
    while (taken(candidate)) candidate = numbered(path, ++number);
    return candidate;
}

// Each scene has its own register of placed files, because files that scenes share are copied for each of
// them.
void path_placement::set_scene(common_directory* scene, const wide_string& name) {
    scene_common = scene;
    scene_folder = name;
    if (!name.empty()) {
        const wide_string folder = path_head(new_project_path);
        const auto way_to = [&](const wide_string& wanted) {
            return path_relative(folder, unique_path(wanted));
        };
        scene_folder = way_to(path_join(folder, name));
        // Neither a caption nor the number added to it may lead out of the new project.
        if (leads_outside(scene_folder))
            scene_folder = way_to(folder + trim(valid_name(held_below(name)), path_separators));
    }
    scene_placed.clear();
}

void path_placement::clear_scene() {
    scene_common = nullptr;
    scene_folder.clear();
}

wide_string path_placement::current_output_folder() const {
    wide_string folder = path_head(new_project_path);
    if (options->structure_variant != folder_per_scene || scene_folder.empty()) return folder;
    return path_join(folder, scene_folder) + u'\\';
}

} // namespace vs::project_resave
