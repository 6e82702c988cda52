// What a continued disk knows of the earlier run's files, and whether each of them can be kept.
#include "apps/vestra_resave/continued_disk.h"

#include <algorithm>
#include <cstdlib>
#include <utility>

#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/journal_disk.h"
#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

wide_string folder_key_of(const wide_string& key) { return path_key(path_head(key)); }

// Allows for file systems that store times in steps of 100 ns. On one that stores whole seconds a copy counts
// as changed.
bool is_same_time(int64_t a, int64_t b) { return std::abs(a - b) < 100; }

// A copy has the time of its source, so equal size and time mean equal content. Reading instead would cost as
// much as copying.
bool is_same(const platform::entry_status& a, const platform::entry_status& b) {
    return a.kind == b.kind && a.bytes == b.bytes && is_same_time(a.modified, b.modified);
}

// True for the temporary name of a copy that is to replace another file.
bool is_name_of_copy(const wide_string& path) {
    const wide_string name = path_file_name(path);
    return name.starts_with(copy_name_begin) && name.ends_with(copy_name_end);
}

// Returns the stem without the number that is appended when a name is taken: "a" for "a_(2)".
wide_string plain_stem(wide_string stem) {
    const size_t open = stem.rfind(u"_(");
    if (open != wide_string::npos && stem.ends_with(u')') &&
        stem.find_first_not_of(u"0123456789", open + 2) == stem.size() - 1)
        stem.resize(open);
    return stem;
}

// Returns the key of the set formed by the files in a copied folder. No file has such a name, so a folder and
// the files next to it that share its name stay different sets.
wide_string folder_set(const wide_string& key) { return key + u'\\'; }

// True if the names differ only in a number, at the end or before the extension.
bool is_numbered(const wide_string& name, const wide_string& other) {
    return plain_stem(name) == plain_stem(other) ||
           (path_extension(name) == path_extension(other) &&
            plain_stem(path_stem(name)) == plain_stem(path_stem(other)));
}

} // namespace

// The name of a data set is the shortest part of the file name before a dot that is the stem of any file:
// "a.vat.dbf" belongs to "a.tif", and "1.2.prj" to "1.2.tif".
wide_string continued_disk::set_of(const wide_string& key) const {
    const wide_string name = path_file_name(key), head = path_head(key);
    for (size_t dot = name.find(u'.'); dot != wide_string::npos; dot = name.find(u'.', dot + 1))
        if (wide_string found = head + name.substr(0, dot); stems_.contains(found)) return found;
    return key;
}

continued_disk::continued_disk(platform::system& below, journal_disk* journal,
                               std::vector<earlier_file> files)
    : forwarding_system(below), journal_(journal) {
    for (earlier_file& file : files) {
        const wide_string key = path_key(file.path);
        // A second record of a path is the newer one.
        const auto [at, is_new] = entries_.try_emplace(key);
        if (is_new)
            inside_[folder_key_of(key)].push_back(path_file_name(file.path));
        else
            at->second.older.push_back(std::move(at->second.file));
        at->second.file = std::move(file);
        stems_.insert(path_head(key) + path_stem(key));
    }
    for (auto& [key, each] : entries_) {
        if (!each.file.source.empty()) by_source_[path_key(each.file.source)].push_back(&each);
        for (const earlier_file& older : each.older) // checking the file shows which of them it is
            if (!older.source.empty()) by_source_[path_key(older.source)].push_back(&each);
        if (each.file.state == made_state::folder)
            each.set = folder_set(key);
        else if (!each.file.data_set.empty())
            each.set = folder_set(path_key(each.file.data_set));
        else
            // A temporary name says nothing about the data set.
            each.set = is_only_begun(each.file) ? key : set_of(key);
    }
    collect_sets();
}

void continued_disk::collect_sets() {
    sets_.clear();
    for (auto& [key, each] : entries_)
        if (each.file.state != made_state::folder) sets_[each.set].made.push_back(&each);
}

void continued_disk::keep_together(const std::vector<wide_string>& sources) {
    std::unordered_set<wide_string> folders; // path keys
    for (const wide_string& source : sources)
        if (inner().kind_of(source) == entry_kind::folder) folders.insert(path_key(path_normalise(source)));
    if (folders.empty()) return;
    for (auto& [key, each] : entries_) {
        if (each.file.state == made_state::folder || each.file.source.empty()) continue;
        // Both paths are shortened in step until the source is the folder; then the copy is that folder's
        // copy.
        wide_string from = path_key(each.file.source), to = key;
        do {
            from = path_normalise(path_head(from)), to = path_normalise(path_head(to));
        } while (!folders.contains(from) && from.size() > path_fixed_length(from));
        // A file of the folder can also have been copied separately.
        if (folders.contains(from) && is_numbered(path_file_name(to), path_file_name(from)))
            each.set = folder_set(to);
    }
    collect_sets();
}

void continued_disk::keep_places_of(const std::vector<wide_string>& sources) {
    for (const wide_string& source : sources) keeping_.insert(path_key(source));
}

void continued_disk::know_sources(const std::vector<wide_string>& sources) {
    std::unordered_set<wide_string> seen; // path keys of folders
    const auto learn = [&](const wide_string& path) {
        if (const platform::entry_status now = inner().status_of(path); now.kind == entry_kind::file)
            is_like_source_.emplace(now.bytes, now.modified);
    };
    for (const wide_string& source : sources) {
        if (inner().kind_of(source) == entry_kind::folder) {
            for (const auto& each : platform::list_tree(inner(), source)) learn(each.path);
        } else if (const wide_string head = path_head(source); seen.insert(path_key(head)).second) {
            for (const auto& each : platform::entries_or_none(inner(), head)) learn(head + each.name);
        }
    }
}

wide_string continued_disk::kept_place(const wide_string& source, const wide_string& wanted) {
    if (keeping_.empty()) return wanted;
    placing_ = path_key(source);
    const auto earlier = by_source_.find(placing_);
    if (earlier == by_source_.end()) return wanted;
    for (const entry* each : earlier->second) {
        const wide_string& place = each->file.path;
        if (path_same(path_head(place), path_head(wanted)) &&
            path_same(path_extension(place), path_extension(wanted)) &&
            path_same(plain_stem(path_stem(place)), plain_stem(path_stem(wanted))))
            return place;
    }
    return wanted;
}

continued_disk::entry* continued_disk::find(const wide_string& path) {
    const auto at = entries_.find(path_key(path));
    return at == entries_.end() ? nullptr : &at->second;
}

// True if the path belongs to a different file, whose name differs only in letter case.
bool continued_disk::is_another(const wide_string& path, const entry& found) {
    if (path == found.file.path || path_file_name(path) == path_file_name(found.file.path)) return false;
    const platform::file_identity asked = inner().identity_of(path);
    return asked && asked != inner().identity_of(found.file.path);
}

// Returns the entry of a hidden path; null if the path is visible.
continued_disk::entry* continued_disk::hidden(const wide_string& path) {
    entry* const found = find(path);
    if (is_over_ || !found || found->what != fate::hidden || is_another(path, *found)) return nullptr;
    // A folder is no member of a set, so it is checked by itself.
    if (found->file.state == made_state::folder) check(*found);
    if (const auto at = sets_.find(found->set); at != sets_.end()) {
        check_set(found->set, at->second);
        if (at->second.is_changed && found->what == fate::hidden)
            found->what = fate::changed; // the folder as well as its files
    }
    return found->what == fate::hidden ? found : nullptr;
}

// If the user changed one file of a set, the whole set is left alone. A set that is to be replaced is also
// left alone if the user added files to it, because they may be derived from it or need it.
void continued_disk::check_set(const wide_string& key, file_set& set) {
    if (std::exchange(set.is_checked, true)) return;
    for (entry* each : set.made) check(*each);
    const auto is = [](fate wanted) { return [wanted](const entry* each) { return each->what == wanted; }; };
    bool is_changed = std::ranges::any_of(set.made, is(fate::changed));
    // Files that the user added matter only if the set would be replaced. To decide that, the sources are
    // examined, but only if there are such files.
    if (!is_changed && has_strangers(key, set))
        is_changed = std::ranges::any_of(set.made, [&](const entry* each) {
            const earlier_file& file = each->file;
            return each->what == fate::hidden && !file.source.empty() && !is_unchanged(*each, file.source);
        });
    set.is_changed = is_changed;
    for (entry* each : set.made)
        if (is_changed && each->what == fate::hidden) each->what = fate::changed;
}

// Uses the state of the folder when it was first read.
bool continued_disk::has_strangers(const wide_string& set_key, const file_set& set) {
    const auto made =
        std::ranges::count_if(set.made, [](const entry* each) { return each->what != fate::missing; });
    if (set_key.ends_with(u'\\')) { // the copy of a folder
        const auto all = platform::list_tree(inner(), path_normalise(set_key));
        return std::ranges::count(all, false, &platform::tree_entry::is_folder) > made;
    }
    const wide_string folder = path_head(set_key);
    const auto [at, is_new] = on_disk_.try_emplace(folder);
    if (is_new)
        for (const auto& each : platform::entries_or_none(inner(), folder)) {
            const wide_string name = path_key(each.name);
            // The command's own files share the project's stem; the user did not add them.
            const bool is_of_command = name.ends_with(u".manifest.json") || name.ends_with(journal_name_end);
            const entry* const known = find(folder + name);
            if (!each.is_folder && !is_of_command) ++at->second[known ? known->set : set_of(folder + name)];
        }
    const auto count = at->second.find(set_key);
    return count != at->second.end() && count->second > static_cast<size_t>(made);
}

void continued_disk::check(entry& asked) {
    if (asked.is_checked) return;
    asked.is_checked = true;
    asked.now = inner().status_of(asked.file.path);
    const auto is_it = [&](const earlier_file& each) { return is_as_made(each, asked.now); };
    if (asked.now.kind == entry_kind::none) {
        asked.what = fate::missing;
    } else if (!is_own(asked.file)) {
        asked.what = fate::changed;
    } else if (!is_it(asked.file)) {
        // The last recorded change was perhaps not made before the run was killed.
        const auto older = std::ranges::find_if(asked.older, is_it);
        if (older == asked.older.end())
            asked.what = fate::changed;
        else
            asked.file = *older;
    }
}

// Files behind a link do not belong to the earlier run. Another hard link elsewhere does not matter, because
// the file is replaced by a new one and removed only under this name.
bool continued_disk::is_own(const earlier_file& file) {
    const platform::file_identity found = inner().identity_of(file.path);
    entry* const folder = find(path_normalise(path_head(file.path)));
    if (folder) check(*folder);
    return found && !found.is_link && (!folder || folder->what != fate::changed);
}

bool continued_disk::is_as_made(const earlier_file& file, const platform::entry_status& now) {
    if (file.state == made_state::folder) return now.kind == entry_kind::folder;
    if (now.kind != entry_kind::file) return false;
    // The run was killed while it wrote the file, so its size and time were never recorded.
    if (file.state == made_state::writing) return true;
    if (file.state == made_state::begun && is_name_of_copy(file.path))
        return true; // only runs use such names
    if (file.modified != 0 && now.bytes == file.bytes && is_same_time(now.modified, file.modified))
        return true;
    // Nothing is lost if the file equals its source.
    if (!file.source.empty() && is_same(now, inner().status_of(file.source))) return true;
    // An incomplete copy is the beginning of its source, possibly followed by blocks that were reserved and
    // not yet written. Anything else has been changed by the user.
    if (!file.source.empty() && (file.state == made_state::begun || !file.is_safe))
        return is_beginning_of(inner(), file.path, file.source);
    if (file.state == made_state::referred) return is_like_source_.contains({now.bytes, now.modified});
    if (file.sha256.empty() || now.bytes != file.bytes) return false;
    const platform::system_override in_force(inner()); // the current disk hides the file
    file_digest digest;
    return read_digest(
               file.path, [] { return false; }, digest) &&
           digest.sha256 == file.sha256;
}

// True if the copy of `source` need not be made again.
bool continued_disk::is_unchanged(const entry& copy, const wide_string& source) {
    const earlier_file& file = copy.file;
    if (file.is_lost) return false;
    if (!file.source.empty() && !path_same(file.source, source) && !inner().same_file(file.source, source))
        return false;
    const platform::entry_status now = inner().status_of(source);
    if (now.kind != entry_kind::file || !is_same(now, copy.now)) return false;
    const bool is_known = file.modified != 0 && file.state == made_state::copied;
    if (is_known && !is_same_time(now.modified, file.modified)) return false;
    return file.is_safe || is_same_text(inner(), source, file.path);
}

// Checked right before a file is replaced or removed, because someone may have changed it since it was first
// checked.
bool continued_disk::is_still(entry& found) {
    if (is_same(inner().status_of(found.file.path), found.now)) return true;
    found.what = fate::changed;
    return false;
}

// True for a file of the earlier run that the user has changed and that was not released by `let_go`.
bool continued_disk::is_kept_from_writing(const wide_string& path) const {
    return fate_of(path) == fate::changed && !may_go(path);
}

bool continued_disk::is_reserved(const entry& found) const {
    if (placing_.empty() || found.file.source.empty()) return false;
    const wide_string source = path_key(found.file.source);
    return source != placing_ && keeping_.contains(source);
}

std::vector<continued_disk::row> continued_disk::rows() {
    std::vector<row> all;
    for (auto& [key, each] : entries_) {
        // For its effect: it checks the entry and its set.
        hidden(each.file.path);
        if (each.what != fate::missing) all.push_back({&key, &each.file, &each.set, each.what});
    }
    std::ranges::sort(all, {}, [](const row& each) -> const wide_string& { return *each.key; });
    return all;
}

std::optional<continued_disk::fate> continued_disk::fate_of(const wide_string& path) const {
    const auto at = entries_.find(path_key(path));
    return at == entries_.end() ? std::nullopt : std::optional(at->second.what);
}

std::optional<continued_disk::fate> continued_disk::fate_of_copy(const wide_string& source,
                                                                 const wide_string& target) {
    const entry* const found = hidden(target);
    if (!found) return fate_of(target);
    return is_unchanged(*found, source) ? fate::kept : fate::replaced;
}

const earlier_file* continued_disk::kept_file(const wide_string& path) const {
    const auto at = entries_.find(path_key(path));
    const bool is_there =
        at != entries_.end() && (at->second.what == fate::kept || at->second.what == fate::failed);
    return is_there ? &at->second.file : nullptr;
}

bool continued_disk::is_filled(const earlier_file& folder) {
    return !platform::entries_or_none(inner(), folder.path).empty();
}

} // namespace vestra::command
