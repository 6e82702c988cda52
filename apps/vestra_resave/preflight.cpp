// The checks before a resave: missing drives, target folder, free space, length of names.
#include "apps/vestra_resave/preflight.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <deque>
#include <map>
#include <set>
#include <unordered_map>
#include <unordered_set>

#include "apps/vestra_resave/companions.h"
#include "apps/vestra_resave/folder_files.h"
#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/api/handles.h"
#include "reference_host/files/files.h"
#include "reference_host/files/references.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// Collects the missing paths by the drive or share that does not exist.
class absent_drives {
public:
    explicit absent_drives(const selection_register& selection) : selection_(selection) {}

    void add(const std::vector<element>& elements, bool is_out = false) {
        for (const element& each : elements) {
            const bool is_each_out = is_out || !selection_.is_selected(each.uuid);
            if (is_each_out && !each.uuid.empty()) left_out_.insert(each.uuid);
            add(each.children, is_each_out);
            // Only what does not exist can be on a missing drive.
            if (!is_each_out && !each.exists.value_or(true)) add(each.file);
        }
    }

    // Adds the references of selected elements, including those of scenes that maps show.
    void add(const project& all) {
        files::visit_references(all, [&](const files::held_reference& held) {
            if (left_out_.contains(held.holder->id.text())) return;
            add(held.text);
            if (held.is_scene) add_scene(held.text);
        });
        for (; !scenes_.empty(); scenes_.pop_front()) {
            scene one(dimension::flat);
            if (files::read_scene(scenes_.front(), one)) continue; // the run reports it
            files::visit_references(one, "scene", [&](const files::held_reference& held) {
                add(held.text);
                if (held.is_scene) add_scene(held.text);
            });
        }
    }

    // Path keys by the key of the drive or share.
    const std::map<wide_string, std::set<wide_string>>& missing() const { return missing_; }

private:
    void add(wide_view reference) {
        const auto path = path_in(reference);
        if (!path) return;
        // The drive or share is asked once; asking for each file would wait for the network each time.
        const wide_string top = path_key(path->substr(0, path_fixed_length(*path)));
        if (top.size() < 2) return; // neither a drive nor a share
        const auto [row, is_new] = known_.try_emplace(top, false);
        if (is_new)
            row->second = platform::current_system().kind_of(top + u'\\') == platform::entry_kind::folder;
        if (!row->second) missing_[top].insert(path_key(*path));
    }

    void add_scene(wide_view reference) {
        const auto path = path_in(reference);
        if (path && path_exists(*path) && seen_scenes_.insert(path_key(*path)).second)
            scenes_.push_back(*path);
    }

    const selection_register& selection_;
    std::unordered_set<wide_string> left_out_; // uuids
    std::map<wide_string, bool> known_;        // true if the drive or share exists
    std::map<wide_string, std::set<wide_string>> missing_;
    std::deque<wide_string> scenes_; // scene files still to be read
    std::unordered_set<wide_string> seen_scenes_;
};

// Returns an unused file name of this length. Most file systems limit names in bytes, and so does this.
wide_string probe_name(size_t bytes) {
    constexpr wide_view stem = u".vestra-resave-probe-";
    return wide_string(stem) + wide_string(bytes > stem.size() ? bytes - stem.size() : 0, u'x');
}

// Creates and removes a file with this name.
platform::outcome try_name(const wide_string& folder, const wide_string& name) {
    const wide_string path = path_join(folder, name);
    std::unique_ptr<platform::file> file;
    platform::outcome created = platform::current_system().open(path, platform::access::read_write,
                                                                platform::disposition::create_new, file);
    // If the name is taken, the disk can store it.
    if (created.is(platform::failure::taken)) {
        // A killed run may have left the file. It is removed only if it is empty, since a file with content
        // is not from such a run.
        const platform::entry_status left = platform::current_system().status_of(path);
        if (left.kind == platform::entry_kind::file && left.bytes == 0)
            platform::current_system().delete_file(path);
        return {};
    }
    if (!created) return created;
    created = file->close();
    file.reset();
    const platform::outcome removed = platform::current_system().delete_file(path);
    if (!created || removed.is(platform::failure::missing)) return created; // another run has removed it
    return removed;
}

// The space that a set of files and its companions need, each file counted once. In a new run sizes
// are rounded up to blocks of the size that most file systems use. A run that continues an earlier one counts
// exact sizes, so that it is not refused for space that it does not need.
class needed_space {
public:
    needed_space(companion_choice which, bool in_blocks) : which_(which), in_blocks_(in_blocks) {}

    double bytes = 0;
    wide_string longest_name;

    void add(const std::vector<size_register::counted_file>& files) {
        std::unordered_map<wide_string, std::vector<wide_string>> seen; // spellings, by path key
        std::unordered_set<wide_string> stems, companions;
        for (const auto& each : files) {
            auto& known = seen[path_key(each.path)];
            // Names that differ only in letter case can be two files.
            if (std::ranges::any_of(known, [&](const wide_string& other) {
                    return platform::current_system().same_file(each.path, other);
                }))
                continue;
            known.push_back(each.path);
            bytes += taken_by(each.size_kb * 1024);
            note_name(path_file_name(each.path));
        }
        // Companions are counted after all files, so that a file of another element is not counted as a
        // companion, too.
        if (which_ == companion_choice::none) return;
        for (const auto& each : files) {
            const wide_string head = path_head(each.path);
            const bool has_stem = stems.insert(path_key(head + path_stem(each.path))).second;
            for (const companion_name& found : companions_of(folders_.files_of(head), each.path, has_stem)) {
                const wide_string path = head + found.name;
                if (!found.is_known && which_ != companion_choice::all) continue;
                if (seen.contains(path_key(path)) || !companions.insert(path_key(path)).second) continue;
                // Asks the real disk for the size, because the folders are listed there as well.
                bytes += taken_by(static_cast<double>(platform::operating_system().file_size(path)));
                note_name(found.name);
            }
        }
    }

    void note_name(const wide_string& name) {
        // In bytes, as most file systems measure names.
        if (platform::to_utf8(name).size() > platform::to_utf8(longest_name).size()) longest_name = name;
    }

private:
    double taken_by(double file_bytes) const {
        constexpr double block = 4096;
        return in_blocks_ ? std::ceil(file_bytes / block) * block : file_bytes;
    }

    const companion_choice which_;
    const bool in_blocks_;
    listed_folders folders_;
};

// With a folder for each scene, only files of scenes are copied, and a file of several scenes is copied for
// each of them.
needed_space space_for(const resave_request& request, const project_context& context,
                       const source_elements& source) {
    needed_space all(request.companions, request.mode == run_mode::anew);
    // The host writes the project under this name first.
    all.note_name(path_file_name(platform::drive_path(request.new_project)) + u".new1");
    if (request.settings.structure_variant != folder_per_scene) {
        all.add(context.sizes.counted_files());
        return all;
    }
    for (const source_elements::row& each : source.rows())
        if (each.kind == "scene" && !source.is_left_out(each.name.uuid))
            all.add(context.sizes.counted_files(each.name.uuid));
    return all;
}

std::optional<refusal> not_saved_for(problem found) { return refusal{not_saved, {std::move(found)}}; }

// Device names, which Windows reserves with any extension.
constexpr auto device_names = std::to_array<wide_view>(
    {u"con",  u"prn",  u"aux",  u"nul",  u"com1", u"com2", u"com3", u"com4", u"com5", u"com6", u"com7",
     u"com8", u"com9", u"lpt1", u"lpt2", u"lpt3", u"lpt4", u"lpt5", u"lpt6", u"lpt7", u"lpt8", u"lpt9"});

// Returns why Windows cannot have a file of this name; empty if it can.
wide_view fault_in_name(const wide_string& name) {
    if (name.find_first_of(u"<>:\"|?*") != wide_string::npos)
        return u"it contains one of the characters <>:\"|?*";
    if (std::ranges::any_of(name, [](char16_t c) { return c < u' '; }))
        return u"it contains a control character";
    if (name.ends_with(u'.') || name.ends_with(u' ')) return u"it ends with a dot or a space";
    // Windows ignores the extension and blanks before it: "con .txt" is the console.
    wide_string stem = platform::folded(name.substr(0, name.find(u'.')));
    stem.erase(stem.find_last_not_of(u' ') + 1);
    return std::ranges::find(device_names, stem) == device_names.end() ? u""
                                                                       : u"it is a reserved device name";
}

} // namespace

std::optional<refusal> refuse_missing_drives(const std::vector<element>& elements, project_context& context) {
    absent_drives drives(context.selection);
    drives.add(elements);
    drives.add(*api::to_model(context.project_handle()));
    const auto& missing = drives.missing();
    if (missing.empty()) return std::nullopt;
    refusal early;
    for (const auto& [top, paths] : missing) {
        const bool is_drive = top.size() == 2;
        std::string name = one_line(top);
        if (is_drive)
            name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
        std::string line = paths.size() == 1
                               ? say("%1 does not exist, but 1 file of the project is on it", {name})
                               : say("%1 does not exist, but %2 files of the project are on it",
                                     {name, std::to_string(paths.size())});
        if (is_drive) line = say("%1; map it with --drive %2=FOLDER", {line, name.substr(0, 1)});
        early.problems.push_back(refused({}, line).problems.front());
    }
    early.problems.push_back(
        refused({}, say("use --allow-missing-drives to treat these files as lost")).problems.front());
    return early;
}

std::optional<refusal> refuse_target(const wide_string& folder, const resave_request& request,
                                     const project_context& context, const source_elements& source) {
    // Tried and not computed from permissions, which a share or a full disk can contradict. First a short
    // name, so that a failure of the long one is due to its length.
    if (const platform::outcome created = try_name(folder, probe_name(0)); !created)
        return not_saved_for({own_kind::not_writable, {}, {}, as_on_disk(folder), created.text()});
    const needed_space space = space_for(request, context, source);
    const wide_string& longest = space.longest_name;
    const size_t bytes = platform::to_utf8(longest).size();
    if (const platform::outcome created = try_name(folder, probe_name(bytes)); !created)
        return not_saved_for(
            {own_kind::name_too_long, {}, {}, path_join(as_on_disk(folder), longest), created.text()});
    uint64_t free = 0;
    const auto needed = static_cast<uint64_t>(std::ceil(space.bytes));
    if (request.ignore_space || !platform::current_system().free_space(folder, free) || needed <= free)
        return std::nullopt;
    return not_saved_for(
        {own_kind::too_little_space,
         {},
         {},
         as_on_disk(folder),
         platform::from_utf8(say("%1 needed, %2 free", {size_text(needed), size_text(free)}))});
}

void add_unportable_names(const run_state& run, std::vector<problem>& all) {
    std::map<wide_string, problem> found; // by new path
    for (const placed_file& each : run.placement.placed) {
        if (each.old_path.empty()) continue;
        // The folders above the copy, too; several copies share them, hence the map.
        for (wide_string path = path_normalise(each.new_path); path.size() > run.placement.new_folder.size();
             path = path_normalise(path_head(path))) {
            const wide_view fault = fault_in_name(path_file_name(path));
            if (!fault.empty())
                found.insert(
                    {path, {own_kind::unportable_name, {}, each.old_path, path, wide_string(fault)}});
        }
    }
    for (auto& [path, each] : found) all.push_back(std::move(each));
}

} // namespace vestra::command
