#include "apps/vestra_resave/preflight.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "apps/vestra_resave/resave_report.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

using path_sets = std::map<wide_string, std::set<wide_string>>;

// The paths of what is selected, by the drive or share that is not there.
void collect_missing(const std::vector<element>& elements, const selection_register& selection,
                     std::map<wide_string, bool>& known, path_sets& missing) {
    for (const element& each : elements) {
        if (!selection.is_selected(each.uuid)) continue;
        collect_missing(each.children, selection, known, missing);
        const auto path = path_in(each.file);
        if (!path || each.exists.value_or(true)) continue;
        const wide_string top = path_key(path->substr(0, path_fixed_length(*path)));
        if (top.size() < 2) continue; // neither a drive nor a share
        const auto [row, is_new] = known.try_emplace(top, false);
        if (is_new)
            row->second = platform::current_system().kind_of(top + u'\\') == platform::entry_kind::folder;
        if (!row->second) missing[top].insert(path_key(*path));
    }
}

// A name of this length, which nobody has. Names are limited in their bytes, here as in most file systems.
wide_string probe_name(size_t bytes) {
    constexpr wide_view stem = u".vestra-resave-probe-";
    return wide_string(stem) + wide_string(bytes > stem.size() ? bytes - stem.size() : 0, u'x');
}

// Creates and removes a file of this name.
platform::outcome try_name(const wide_string& folder, const wide_string& name) {
    const wide_string path = path_join(folder, name);
    std::unique_ptr<platform::file> file;
    platform::outcome created = platform::current_system().open(path, platform::access::read_write,
                                                                platform::disposition::create_new, file);
    if (created.is(platform::failure::taken)) return {};
    if (!created) return created;
    created = file->close();
    file.reset();
    const platform::outcome removed = platform::current_system().delete_file(path);
    return created ? removed : created;
}

wide_string longest_name(const project_context& context) {
    wide_string longest;
    for (const wide_string& path : context.sizes.known_paths())
        if (const wide_string name = path_file_name(path);
            platform::to_utf8(name).size() > platform::to_utf8(longest).size())
            longest = name;
    return longest;
}

std::optional<refusal> not_saved_for(problem found) { return refusal{not_saved, {std::move(found)}}; }

// Names of devices, whatever their extension.
constexpr auto device_names = std::to_array<wide_view>(
    {u"con",  u"prn",  u"aux",  u"nul",  u"com1", u"com2", u"com3", u"com4", u"com5", u"com6", u"com7",
     u"com8", u"com9", u"lpt1", u"lpt2", u"lpt3", u"lpt4", u"lpt5", u"lpt6", u"lpt7", u"lpt8", u"lpt9"});

// Why a Windows disk would not take the name; empty if it would.
wide_view fault_in_name(const wide_string& name) {
    if (name.find_first_of(u"<>:\"|?*") != wide_string::npos) return u"it has one of the characters <>:\"|?*";
    if (std::ranges::any_of(name, [](char16_t c) { return c < u' '; })) return u"it has a control character";
    if (name.ends_with(u'.') || name.ends_with(u' ')) return u"it ends with a dot or a blank";
    wide_string stem = platform::folded(name.substr(0, name.find(u'.')));
    stem.erase(stem.find_last_not_of(u' ') + 1);
    return std::ranges::find(device_names, stem) == device_names.end() ? u"" : u"it is the name of a device";
}

} // namespace

std::optional<refusal> refuse_missing_drives(const std::vector<element>& elements,
                                             const selection_register& selection) {
    std::map<wide_string, bool> known;
    path_sets missing;
    collect_missing(elements, selection, known, missing);
    if (missing.empty()) return std::nullopt;
    refusal early;
    for (const auto& [top, paths] : missing) {
        const bool is_drive = top.size() == 2;
        std::string name = one_line(top);
        if (is_drive)
            name.front() = static_cast<char>(std::toupper(static_cast<unsigned char>(name.front())));
        std::string line = paths.size() == 1
                               ? say("%1 does not exist, and 1 file of the project is on it", {name})
                               : say("%1 does not exist, and %2 files of the project are on it",
                                     {name, std::to_string(paths.size())});
        if (is_drive) line = say("%1; map it with --drive %2=FOLDER", {line, name.substr(0, 1)});
        early.problems.push_back(refused({}, line).problems.front());
    }
    early.problems.push_back(
        refused({}, say("with --allow-missing-drives these files are lost")).problems.front());
    return early;
}

std::optional<refusal> refuse_target(const wide_string& folder, project_context& context, bool checks_space) {
    if (const platform::outcome created = try_name(folder, probe_name(0)); !created)
        return not_saved_for({own_kind::not_writable, {}, {}, as_on_disk(folder), created.text()});
    const wide_string longest = longest_name(context);
    const size_t bytes = platform::to_utf8(longest).size();
    if (const platform::outcome created = try_name(folder, probe_name(bytes)); !created)
        return not_saved_for(
            {own_kind::name_too_long, {}, {}, path_join(as_on_disk(folder), longest), created.text()});
    uint64_t free = 0;
    const auto needed = static_cast<uint64_t>(std::ceil(context.sizes.total_kb() * 1024));
    if (!checks_space || !platform::current_system().free_space(folder, free) || needed <= free)
        return std::nullopt;
    return not_saved_for(
        {own_kind::too_little_space,
         {},
         {},
         as_on_disk(folder),
         platform::from_utf8(say("%1 are needed, %2 are free", {size_text(needed), size_text(free)}))});
}

void add_unportable_names(const run_state& run, std::vector<problem>& all) {
    std::map<wide_string, problem> found; // by the new path
    for (const placed_file& each : run.placement.placed) {
        if (each.old_path.empty()) continue;
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
