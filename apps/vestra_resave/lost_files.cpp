// Searches folders for the missing files of a project and decides which candidate is the right one.
#include "apps/vestra_resave/lost_files.h"

#include <algorithm>
#include <span>
#include <utility>

#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/session.h"
#include "apps/vestra_resave/words.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/files/references.h"
#include "reference_host/shell/front_end.h"

namespace vestra::command {

using namespace vs::project_resave;
using files::held_reference;
using platform::folded;

namespace {

bool is_stopped() {
    const auto& stops = shell::settings().stops_reading;
    return stops && stops();
}

wide_string family_key(const wide_string& path) { return path_key(path_head(path) + path_stem(path)); }

// Returns how many parent folders of both paths have equal names, counted upwards until the first difference.
size_t agreement_of(const wide_string& one, const wide_string& other) {
    const auto names = [](const wide_string& path) {
        return path_split(folded(path_head(path)), path_separators, true);
    };
    const auto first = names(one), second = names(other);
    const auto differs = std::mismatch(first.rbegin(), first.rend(), second.rbegin(), second.rend());
    return static_cast<size_t>(differs.first - first.rbegin());
}

wide_string place_key(const wide_string& folder, const wide_string& name) {
    return folded(path_file_name(path_normalise(folder)) + u'\\' + name);
}

wide_string reason_for(const std::vector<wide_string>& candidates) {
    constexpr size_t shown = 10;
    std::string all = printed(candidates.front());
    for (size_t index = 1; index < std::min(shown, candidates.size()); ++index)
        all += "; " + printed(candidates[index]);
    const size_t more = candidates.size() - std::min(shown, candidates.size());
    if (more != 0) all += "; +" + std::to_string(more);
    return platform::from_utf8(say("it may be %1", {all}));
}

// A path found from the root folder may be on a mapped drive; returns the form with that drive, as the
// project uses it.
wide_string on_own_drive(const wide_string& path) {
    const std::u8string native = platform::native_path(path).u8string();
    if (!native.starts_with(u8'/')) return path;
    return platform::drive_path({reinterpret_cast<const char*>(native.data()), native.size()});
}

void visit(const project& all, const files::reference_visitor& visitor) {
    files::visit_references(all, visitor);
}
void visit(const scene& one, const files::reference_visitor& visitor) {
    files::visit_references(one, "scene", visitor);
}

} // namespace

void file_index::add(const wide_string& root) {
    // Links are followed last, so that files get their direct path.
    std::vector<wide_string> waiting{root}, linked;
    for (size_t next = 0; next < waiting.size() && !is_stopped(); ++next) {
        list(wide_string(waiting[next]), waiting, linked);
        if (next + 1 == waiting.size())
            std::ranges::move(std::exchange(linked, {}), std::back_inserter(waiting));
    }
}

void file_index::list(const wide_string& path, std::vector<wide_string>& inner,
                      std::vector<wide_string>& linked) {
    platform::system& disk = platform::current_system();
    const platform::file_identity identity = disk.identity_of(path);
    // By identity, so links in a circle end here.
    if (identity && !seen_.insert(identity).second) return;
    std::vector<platform::folder_entry> entries;
    if (const platform::outcome read = disk.list(path, entries); !read) unread_.push_back({path, read});
    const wide_string folder = path_with_separator(path);
    for (platform::folder_entry& each : entries) {
        if (each.is_folder) (each.is_link ? linked : inner).push_back(folder + each.name);
        // Twice: with the name of its folder, which often is the same after a move, and without it.
        by_name_[place_key(folder, each.name)].push_back({folders_.size(), each.name});
        by_name_[folded(each.name)].push_back({folders_.size(), std::move(each.name)});
    }
    folders_.push_back(folder);
}

// Matches in a folder with the same name come first, because they agree best. The limit keeps many files of
// one name in different folders cheap.
std::vector<wide_string> file_index::like(const wide_string& path) const {
    constexpr size_t limit = 100;
    const wide_string whole = path_normalise(path), name = path_file_name(whole);
    auto row = by_name_.find(place_key(path_head(whole), name));
    if (row == by_name_.end()) row = by_name_.find(folded(name));
    std::vector<wide_string> paths;
    if (row != by_name_.end())
        for (const entry& each : std::span(row->second).first(std::min(limit, row->second.size())))
            paths.push_back(folders_[each.folder] + each.name);
    return paths;
}

std::optional<refusal> lost_file_search::begin(const std::vector<std::string>& folders) {
    for (const std::string& folder : folders) {
        if (auto early = refuse_share(folder)) return early;
        const wide_string path = platform::drive_path(folder);
        if (platform::current_system().kind_of(path) != platform::entry_kind::folder)
            return refused(path, say("--search: no such folder"));
        roots_.push_back(path);
    }
    if (folders.empty()) return std::nullopt;
    is_active_ = true;
    const auto look_through = [this](auto& model) {
        find_in(model, false);
        // The paths of model files are relative to a file that may itself have been lost and found, so they
        // are known only after the first pass.
        find_in(model, true); // searched for next to the files found
    };
    shell::settings().project_read = look_through;
    shell::settings().scene_read = look_through;
    return std::nullopt;
}

void lost_file_search::end() {
    if (!std::exchange(is_active_, false)) return;
    shell::settings().project_read = nullptr;
    shell::settings().scene_read = nullptr;
}

template <class Model>
void lost_file_search::find_in(Model& model, bool model_files) {
    std::vector<lost_file> lost;
    visit(model, [&](const held_reference& held) {
        if ((held.kind == "model file") != model_files) return;
        const std::optional<wide_string> path = path_in(held.text);
        const wide_string key = path ? path_key(*path) : wide_string();
        if (key.empty() || used_.contains(key) || decided_.contains(key)) return;
        if (path_exists(*path)) {
            used_.insert(key);
            return;
        }
        // Entered as undecided, so that it is searched for only once, however many elements refer to it.
        decided_.try_emplace(key);
        const entity& owner = *held.holder;
        problem about{name_of(fact_kind::source_lost),
                      {owner.id.text(), owner.caption, wide_string(held.list)},
                      *path,
                      {}};
        lost.push_back({std::move(about), family_key(*path), {}});
    });
    if (!lost.empty()) decide(lost);
    files::change_references(model, [&](const held_reference& held) {
        const std::optional<wide_string> path = path_in(held.text);
        const auto row = path ? decided_.find(path_key(*path)) : decided_.end();
        if (row == decided_.end() || row->second.empty()) return wide_string();
        // The mark has a meaning for the host and stays.
        return (held.text.starts_with(u'*') ? u"*" : u"") + row->second;
    });
}

void lost_file_search::decide(std::vector<lost_file>& all) {
    // Walking the folders can take minutes, so it waits for the first loss.
    if (!std::exchange(is_walked_, true))
        for (const wide_string& root : roots_) index_.add(root);
    std::unordered_map<wide_string, lost_family> families;
    for (const lost_file& each : all) families[each.family].names.push_back(path_file_name(each.about.path));
    for (lost_file& each : all) {
        if (is_stopped()) return;
        each.candidates = candidates_for(each.about.path);
        choose(each, families[each.family]);
    }
    // If several lost files would get the same file, only the one whose path agrees best gets it.
    std::unordered_map<wide_string, std::vector<lost_file*>> by_choice;
    for (lost_file& each : all)
        if (!each.choice.empty()) by_choice[path_key(each.choice)].push_back(&each);
    for (auto& [path, rivals] : by_choice) {
        std::ranges::stable_sort(rivals, std::ranges::greater(), &lost_file::agreement);
        // If two agree equally, neither gets the file: one of them would be wrong.
        const bool has_winner = rivals.size() == 1 || rivals[0]->agreement > rivals[1]->agreement;
        for (lost_file* each : std::span(rivals).subspan(has_winner ? 1 : 0)) each->choice.clear();
    }
    take_found(all);
}

std::vector<wide_string> lost_file_search::candidates_for(const wide_string& path) {
    std::vector<wide_string> all = index_.like(path);
    // The index has names of broken links and of files that were removed since.
    std::erase_if(all, [](const wide_string& each) { return !path_exists(each); });
    for (wide_string& each : all) each = on_own_drive(each);
    return all;
}

void lost_file_search::choose(lost_file& lost, lost_family& family) {
    const auto is_complete = [&](const wide_string& path) {
        const wide_string folder = path_head(path);
        const auto [row, is_new] = family.is_complete_in.try_emplace(path_key(folder), true);
        if (is_new)
            row->second = std::ranges::all_of(family.names, [&](const wide_string& name) {
                const wide_string member = folder + name;
                // A shape file without its index cannot be read, so it is no candidate.
                return path_exists(member) && std::ranges::all_of(partners_of(member), &path_exists);
            });
        return row->second;
    };
    std::vector<wide_string> best;
    for (const wide_string& each : lost.candidates) {
        const size_t agreement = agreement_of(each, lost.about.path);
        // What the project refers to already is another element's file, not the lost one.
        if (used_.contains(path_key(each)) || !is_complete(each)) continue;
        if (!best.empty() && agreement < lost.agreement) continue;
        if (agreement > lost.agreement) best.clear();
        best.push_back(each);
        lost.agreement = agreement;
    }
    if (best.size() == 1 || (!best.empty() && hold_same_data(best))) lost.choice = best.front();
}

// Lost members of a family move to the folder where another member was found.
void lost_file_search::take_found(std::vector<lost_file>& all) {
    for (const lost_file& each : all)
        if (!each.choice.empty()) moved_.try_emplace(each.family, path_head(each.choice));
    for (lost_file& each : all) {
        if (const auto row = moved_.find(each.family); row != moved_.end() && each.choice.empty())
            for (const wide_string& other : each.candidates)
                if (path_same(path_head(other), row->second)) each.choice = other;
        if (each.choice.empty()) {
            if (each.candidates.empty()) continue;
            each.about.reason = reason_for(each.candidates);
            each.about.candidates = std::move(each.candidates);
            undecided_.push_back(std::move(each.about));
            continue;
        }
        used_.insert(path_key(each.choice));
        decided_[path_key(each.about.path)] = each.choice;
        each.about.kind = own_kind::found;
        each.about.new_path = each.choice;
        found_.push_back(std::move(each.about));
    }
}

// Compares the files together with their companions. Each file is read at most once.
bool lost_file_search::hold_same_data(const std::vector<wide_string>& all) {
    const auto files_of = [&](const wide_string& path) {
        std::vector<wide_string> names = family_of(path, folders_.files_of(path_head(path)));
        names.push_back(path_file_name(path));
        // So that families are compared name by name.
        std::ranges::sort(names, {}, &folded);
        return names;
    };
    platform::system& disk = platform::current_system();
    const std::vector<wide_string> first = files_of(all.front());
    std::vector<uint64_t> sizes; // of the first; files of another size are not read
    for (const wide_string& name : first) {
        const platform::entry_status status = disk.status_of(path_head(all.front()) + name);
        if (status.kind != platform::entry_kind::file) return false;
        sizes.push_back(status.bytes);
    }
    std::vector<std::vector<wide_string>> names{first};
    for (const wide_string& path : std::span(all).subspan(1)) {
        names.push_back(files_of(path));
        if (!std::ranges::equal(first, names.back(), {}, &folded, &folded)) return false;
        for (size_t index = 0; index < first.size(); ++index)
            if (disk.file_size(path_head(path) + names.back()[index]) != sizes[index]) return false;
    }
    for (size_t index = 0; index < first.size(); ++index) {
        std::string known; // digest of the first
        // File by file across all candidates, so that the first difference ends the comparison.
        for (size_t each = 0; each < all.size(); ++each) {
            file_digest digest;
            if (!read_digest(path_head(all[each]) + names[each][index], is_stopped, digest)) return false;
            if (each == 0) known = digest.sha256;
            if (digest.sha256 != known) return false;
        }
    }
    return true;
}

std::vector<problem> lost_file_search::notices() const {
    std::vector<problem> all = found_;
    for (const platform::unread_folder& each : index_.unread())
        all.push_back({own_kind::not_searched, {}, each.path, {}, each.reason.text()});
    return all;
}

void lost_file_search::explain(std::vector<problem>& all) const {
    std::unordered_map<wide_string, const problem*> by_path;
    for (const problem& each : undecided_) by_path.emplace(path_key(each.path), &each);
    for (problem& each : all) {
        const auto row = by_path.find(path_key(each.path));
        if (each.kind != name_of(fact_kind::source_lost) || row == by_path.end()) continue;
        each.reason = row->second->reason;
        each.candidates = row->second->candidates;
    }
}

} // namespace vestra::command
