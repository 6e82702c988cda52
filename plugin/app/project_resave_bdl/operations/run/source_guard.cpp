// Protects the source. The same file can be reached by another spelling, a link or another drive letter, so
// both names and identities of files are compared. They are read only when first needed.

#include "operations/run/source_guard.h"

#include <algorithm>
#include <utility>

#include "operations/run/path_files.h"
#include "operations/run/registers.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

const platform::outcome belongs_to_source = platform::outcome::because(source_guard::reason);

platform::system& files() { return platform::current_system(); }

} // namespace

void source_guard::add(const wide_string& path) {
    if (!path.empty()) added_.push_back(path);
}

void source_guard::clear() {
    added_.clear();
    learned_ = nothing;
}

void source_guard::learn_names() {
    const size_t count = known_->path_count() + added_.size();
    if (count == learned_) return;
    keys_.clear();
    by_folder_.clear();
    companions_.clear();
    renew();
    const auto learn = [this](const wide_string& path) {
        if (keys_.insert(path_key(path)).second) by_folder_[path_key(path_head(path))].push_back(path);
    };
    for (const wide_string& path : known_->known_paths()) learn(path);
    for (const wide_string& path : added_) learn(path);
    learned_ = count;
}

void source_guard::learn_identities() {
    if (std::exchange(knows_identities_, true)) return;
    identities_.clear();
    folders_.clear();
    inner_folders_.clear();
    inner_identities_.clear();
    for (const auto& [key, paths] : by_folder_) {
        if (const auto folder = files().identity_of(path_head(paths.front()))) folders_.emplace(folder, key);
        for (const wide_string& path : paths) learn_identity(path);
    }
}

void source_guard::learn_identity(const wide_string& path) {
    const platform::file_identity identity = files().identity_of(path);
    if (!identity) return; // a lost file is protected by its name
    identities_.insert(identity);
    const wide_string folder = path_normalise(path_head(path));
    if (has_own_folder(path))
        learn_folder(folder, files().identity_of(folder));
    else if (identity.is_folder)
        learn_folder(path, identity);
}

void source_guard::learn_folder(const wide_string& path, const platform::file_identity& identity) {
    inner_folders_.insert(path_key(path));
    inner_identities_.insert(identity);
    for (const platform::tree_entry& entry : platform::list_tree(files(), path))
        if (const auto inner = files().identity_of(entry.path)) identities_.insert(inner);
}

bool source_guard::is_inside(const wide_string& path) {
    learn_names();
    learn_identities();
    return inner_folders_.contains(path_key(path)) || is_in_known_folder(path);
}

bool source_guard::is_in_known_folder(const wide_string& path) {
    if (inner_folders_.empty()) return false;
    // Walks up, so that a path in a folder that does not exist yet is found as well.
    for (wide_string level = path_normalise(path_head(path)); level.size() > path_fixed_length(level);
         level = path_normalise(path_head(level)))
        if (inner_folders_.contains(path_key(level)) ||
            inner_identities_.contains(files().identity_of(level)))
            return true;
    return false;
}

bool source_guard::claims_family(const wide_string& path) {
    learn_names();
    const auto row = by_folder_.find(path_key(path_head(path)));
    if (row == by_folder_.end()) return false;
    const path_keys& companions = companions_in(row->first);
    const auto is_of_source = [&](const wide_string& name) {
        const wide_string key = path_key(name);
        return keys_.contains(key) || companions.contains(key);
    };
    return is_of_source(path) || std::ranges::any_of(companion_files(path), is_of_source);
}

const source_guard::path_keys& source_guard::companions_in(const wide_string& folder_key) {
    const auto [row, is_new] = companions_.try_emplace(folder_key);
    if (is_new)
        for (const wide_string& path : by_folder_[folder_key])
            for (const wide_string& companion : companion_files(path))
                row->second.insert(path_key(companion));
    return row->second;
}

bool source_guard::is_named(const wide_string& folder_key, const wide_string& name) {
    if (!by_folder_.contains(folder_key)) return false;
    const wide_string key = path_key(path_join(path_head(by_folder_[folder_key].front()), name));
    return keys_.contains(key) || companions_in(folder_key).contains(key);
}

// Symbolic links are visible in their folder's listing; for hard links each companion must be examined.
void source_guard::learn_links() {
    linked_companions_.clear();
    for (const auto& [folder, paths] : by_folder_)
        for (const platform::folder_entry& entry :
             platform::entries_or_none(files(), path_head(paths.front())))
            if (entry.is_link && is_named(folder, entry.name))
                if (const auto identity =
                        files().identity_of(path_join(path_head(paths.front()), entry.name)))
                    linked_companions_.insert(identity);
}

bool source_guard::is_linked_companion(const platform::file_identity& asked) {
    if (!std::exchange(knows_links_, true)) learn_links();
    if (linked_companions_.contains(asked)) return true;
    if (asked.names < 2) return false;
    if (!std::exchange(knows_companions_, true)) {
        named_companions_.clear();
        for (const auto& [folder, paths] : by_folder_)
            for (const wide_string& path : paths)
                for (const wide_string& companion : companion_files(path))
                    if (const auto identity = files().identity_of(companion))
                        named_companions_.insert(identity);
    }
    return named_companions_.contains(asked);
}

bool source_guard::protects(const wide_string& path) {
    if (path.empty()) return false;
    learn_names();
    if (keys_.contains(path_key(path))) return true;
    const wide_string folder = path_head(path), name = path_file_name(path);
    if (is_named(path_key(folder), name)) return true;
    // From here on the disk is read: a path that is protected by its name costs nothing.
    learn_identities();
    if (is_in_known_folder(path)) return true;
    const platform::file_identity identity = files().identity_of(path);
    if (identities_.contains(identity)) return true;
    const platform::file_identity place = files().identity_of(folder);
    for (auto row = folders_.lower_bound(place); place && row != folders_.end() && row->first == place; ++row)
        if (is_named(row->second, name)) return true;
    if (!identity) return identity.names > 0; // may lead to a lost file of the source
    return is_linked_companion(identity);
}

platform::outcome source_guard::remove_file(const wide_string& path) {
    return protects(path) ? belongs_to_source : files().delete_file(path);
}

platform::outcome source_guard::remove_folder(const wide_string& path) {
    return protects(path) ? belongs_to_source : files().remove_folder(path);
}

platform::outcome source_guard::remove_alone(const wide_string& path) {
    if (protects(path)) return belongs_to_source;
    const platform::outcome deleted = files().delete_file(path);
    if (deleted) return deleted;
    const platform::outcome removed = files().remove_folder(path);
    return removed || files().kind_of(path) == platform::entry_kind::folder ? removed : deleted;
}

platform::outcome source_guard::remove_tree(const wide_string& path) {
    if (remove_alone(path)) return {};
    if (protects(path)) return belongs_to_source;
    platform::outcome first;
    const auto entries = platform::entries_or_none(files(), path);
    for (auto entry = entries.rbegin(); entry != entries.rend(); ++entry) {
        const wide_string inner = path_with_separator(path) + entry->name;
        // A link that cannot be removed must not be entered either.
        const platform::outcome removed = entry->is_link ? remove_alone(inner) : remove_tree(inner);
        if (!removed && first) first = removed;
    }
    const platform::outcome removed = files().remove_folder(path);
    return removed || first ? removed : first;
}

} // namespace vs::project_resave
