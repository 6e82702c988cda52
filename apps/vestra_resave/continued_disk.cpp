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
using platform::outcome;

namespace {

wide_string folder_key_of(const wide_string& key) { return path_key(path_head(key)); }

// As exact as the least exact of the usual disks; on one that keeps whole seconds a copy counts as changed.
bool is_same_time(int64_t a, int64_t b) { return std::abs(a - b) < 100; }

constexpr const char16_t* changed_reason = u"it was changed since the earlier resave";

bool is_same(const platform::entry_status& a, const platform::entry_status& b) {
    return a.kind == b.kind && a.bytes == b.bytes && is_same_time(a.modified, b.modified);
}

// True if `path` holds what the source begins with, and then nothing but zeros, as a copy does that broke
// off.
bool is_beginning_of(platform::system& disk, const wide_string& path, const wide_string& source) {
    std::unique_ptr<platform::file> half, whole;
    using platform::access;
    using platform::disposition;
    if (!disk.open(path, access::read, disposition::open_existing, half)) return false;
    if (half->size() == 0) return true;
    if (!disk.open(source, access::read, disposition::open_existing, whole) || half->size() > whole->size())
        return false;
    constexpr size_t piece = 256 * 1024;
    std::vector<char> first(piece), second(piece);
    bool is_at_zeros = false;
    for (uint64_t rest = half->size(); rest != 0;) {
        const auto length = static_cast<size_t>(std::min<uint64_t>(rest, piece));
        if (!half->read_whole(first.data(), length) || !whole->read_whole(second.data(), length))
            return false;
        const char* const end = first.data() + length;
        const char* differs = first.data();
        if (!is_at_zeros) differs = std::mismatch(differs, end, std::as_const(second).data()).first;
        is_at_zeros = differs != end;
        if (std::any_of(differs, end, [](char each) { return each != 0; })) return false;
        rest -= length;
    }
    return true;
}

bool is_same_text(platform::system& disk, const wide_string& a, const wide_string& b) {
    const platform::entry_status one = disk.status_of(a), other = disk.status_of(b);
    return one.kind == entry_kind::file && other.kind == entry_kind::file && one.bytes == other.bytes &&
           is_beginning_of(disk, a, b) && is_beginning_of(disk, b, a);
}

// Of a copy that is to take the place of another file.
bool is_name_of_copy(const wide_string& path) {
    const wide_string name = path_file_name(path);
    return name.starts_with(copy_name_begin) && name.ends_with(copy_name_end);
}

// The stem without the number that a taken name gets.
wide_string plain_stem(wide_string stem) {
    const size_t open = stem.rfind(u"_(");
    if (open != wide_string::npos && stem.ends_with(u')') &&
        stem.find_first_not_of(u"0123456789", open + 2) == stem.size() - 1)
        stem.resize(open);
    return stem;
}

} // namespace

// A data set is known by the shortest beginning of the name, up to a dot, that is the stem of any file: so
// "a.vat.dbf" goes with "a.tif", and "1.2.prj" with "1.2.tif".
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
        if (each.file.state == made_state::folder) continue;
        each.set = set_of(key);
        sets_[each.set].made.push_back(&each);
    }
}

void continued_disk::keep_together(const std::vector<wide_string>& sources) {
    std::unordered_set<wide_string> folders; // path keys
    for (const wide_string& source : sources)
        if (inner().kind_of(source) == entry_kind::folder) folders.insert(path_key(path_normalise(source)));
    if (folders.empty()) return;
    for (auto& [key, each] : entries_) {
        if (each.set.empty() || each.file.source.empty()) continue;
        wide_string from = path_key(each.file.source), to = key;
        do {
            from = path_normalise(path_head(from)), to = path_normalise(path_head(to));
        } while (!folders.contains(from) && from.size() > path_fixed_length(from));
        if (!folders.contains(from)) continue;
        std::erase(sets_[each.set].made, &each);
        each.set = to;
        sets_[to].made.push_back(&each);
    }
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

// The entry at a path that does not show; null for one that does.
continued_disk::entry* continued_disk::hidden(const wide_string& path) {
    entry* const found = find(path);
    if (is_over_ || !found || found->what != fate::hidden) return nullptr;
    if (found->is_checked) return found;
    const wide_string& set =
        found->file.state == made_state::folder ? path_key(found->file.path) : found->set;
    if (found->file.state == made_state::folder) check(*found);
    if (const auto at = sets_.find(set); at != sets_.end()) {
        check_set(set, at->second);
        if (at->second.is_changed && found->what == fate::hidden)
            found->what = fate::changed; // the folder with its files
    }
    return found->what == fate::hidden ? found : nullptr;
}

// A set of which somebody changed one file is left alone as a whole; so is one that is to change and beside
// which somebody put files: they may have been made from it, or need it.
void continued_disk::check_set(const wide_string& key, file_set& set) {
    if (std::exchange(set.is_checked, true)) return;
    for (entry* each : set.made) check(*each);
    const auto is = [](fate wanted) { return [wanted](const entry* each) { return each->what == wanted; }; };
    bool is_changed = std::ranges::any_of(set.made, is(fate::changed));
    if (!is_changed && has_strangers(key, set))
        is_changed = std::ranges::any_of(set.made, [&](const entry* each) {
            const earlier_file& file = each->file;
            return each->what == fate::hidden && !file.source.empty() && !is_unchanged(*each, file.source);
        });
    set.is_changed = is_changed;
    for (entry* each : set.made)
        if (is_changed && each->what == fate::hidden) each->what = fate::changed;
}

// As the folder was when it was asked first.
bool continued_disk::has_strangers(const wide_string& set_key, const file_set& set) {
    if (find(set_key)) return false; // the copy of a folder
    const wide_string folder = path_head(set_key);
    const auto [at, is_new] = on_disk_.try_emplace(folder);
    if (is_new)
        for (const auto& each : platform::entries_or_none(inner(), folder)) {
            const wide_string name = path_key(each.name);
            const bool is_of_command =
                name.ends_with(u".manifest.json") || name.ends_with(u".resave-journal");
            if (!each.is_folder && !is_of_command) ++at->second[set_of(folder + name)];
        }
    const auto count = at->second.find(set_key);
    const auto made =
        std::ranges::count_if(set.made, [](const entry* each) { return each->what != fate::missing; });
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
        const auto older = std::ranges::find_if(asked.older, is_it);
        if (older == asked.older.end())
            asked.what = fate::changed;
        else
            asked.file = *older;
    }
}

// What lies behind a link is not the earlier run's. A second name elsewhere does not matter: the file is
// replaced by a new one, and removed under this name alone.
bool continued_disk::is_own(const earlier_file& file) {
    const platform::file_identity found = inner().identity_of(file.path);
    entry* const folder = find(path_normalise(path_head(file.path)));
    if (folder) check(*folder);
    return found && !found.is_link && (!folder || folder->what != fate::changed);
}

bool continued_disk::is_as_made(const earlier_file& file, const platform::entry_status& now) {
    if (file.state == made_state::folder) return now.kind == entry_kind::folder;
    if (now.kind != entry_kind::file) return false;
    if (file.state == made_state::writing) return true;
    if (file.state == made_state::begun && is_name_of_copy(file.path))
        return true; // nobody else has such names
    if (file.modified != 0 && now.bytes == file.bytes && is_same_time(now.modified, file.modified))
        return true;
    // What is as its source is no loss.
    if (!file.source.empty() && is_same(now, inner().status_of(file.source))) return true;
    if (!file.source.empty() && (file.state == made_state::begun || !file.is_safe))
        return is_beginning_of(inner(), file.path, file.source);
    if (file.state == made_state::referred) return is_like_source_.contains({now.bytes, now.modified});
    if (file.sha256.empty() || now.bytes != file.bytes) return false;
    const platform::system_override in_force(inner()); // this one does not show the file
    file_digest digest;
    return read_digest(
               file.path, [] { return false; }, digest) &&
           digest.sha256 == file.sha256;
}

// Whether the copy of `source` need not be made again.
bool continued_disk::is_unchanged(const entry& copy, const wide_string& source) {
    const earlier_file& file = copy.file;
    if (!file.source.empty() && !path_same(file.source, source)) return false;
    const platform::entry_status now = inner().status_of(source);
    if (now.kind != entry_kind::file || !is_same(now, copy.now)) return false;
    const bool is_known = file.modified != 0 && file.state == made_state::copied;
    if (is_known && !is_same_time(now.modified, file.modified)) return false;
    return file.is_safe || is_same_text(inner(), source, file.path);
}

// True for a file of the earlier run that somebody has changed, and nobody said that it may go.
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
        hidden(each.file.path);
        if (each.what != fate::missing) all.push_back({&key, &each.file, each.what});
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

outcome continued_disk::remove_hidden(const earlier_file& file) {
    const outcome removed =
        file.state == made_state::folder ? inner().remove_folder(file.path) : inner().delete_file(file.path);
    if (removed) find(file.path)->what = fate::missing;
    return removed;
}

platform::entry_status continued_disk::status_of(const wide_string& path) {
    const entry* const found = hidden(path);
    if (found && !is_reserved(*found)) return {entry_kind::none, 0, platform::failure::missing};
    return inner().status_of(path);
}

outcome continued_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    entry* const found = hidden(target);
    if (!found || found->file.state == made_state::folder) return inner().copy_file(source, target, replace);
    if (is_unchanged(*found, source)) {
        found->what = fate::kept;
        if (journal_) journal_->add_kept(found->file.path, source, found->now);
        return {};
    }
    const outcome copied = inner().copy_file(source, found->file.path, true);
    found->what = copied ? fate::replaced : fate::failed;
    if (!copied && journal_) journal_->add_kept(found->file.path, source, found->now); // for the next try
    return copied;
}

outcome continued_disk::delete_file(const wide_string& path) {
    entry* const found = find(path);
    if (!found || found->what == fate::changed || found->what == fate::missing)
        return inner().delete_file(path);
    if (found->what == fate::hidden) return platform::failure::missing;
    found->what = fate::hidden;
    return {};
}

outcome continued_disk::create_folder(const wide_string& path) {
    entry* const found = hidden(path);
    if (!found || found->file.state != made_state::folder) return inner().create_folder(path);
    found->what = fate::kept;
    return {};
}

outcome continued_disk::remove_folder(const wide_string& path) {
    entry* const found = find(path);
    if (!found || found->file.state != made_state::folder || found->what == fate::missing)
        return inner().remove_folder(path);
    std::vector<platform::folder_entry> entries;
    if (const outcome listed = list(path, entries); !listed) return listed;
    if (!entries.empty()) return inner().remove_folder(path); // which fails, with the reason
    found->what = fate::hidden;
    return {};
}

outcome continued_disk::list(const wide_string& path, std::vector<platform::folder_entry>& entries) {
    entries.clear();
    if (hidden(path)) return platform::failure::missing;
    const outcome listed = inner().list(path, entries);
    const auto made = inside_.find(path_key(path));
    if (!listed || made == inside_.end()) return listed;
    std::erase_if(entries, [&](const platform::folder_entry& each) {
        return hidden(path_join(path, each.name)) != nullptr;
    });
    return listed;
}

bool continued_disk::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    return !hidden(path_join(folder, name)) && inner().true_name(folder, name, spelling);
}

platform::file_identity continued_disk::identity_of(const wide_string& path) {
    return hidden(path) ? platform::file_identity() : inner().identity_of(path);
}

bool continued_disk::same_file(const wide_string& a, const wide_string& b) {
    return !hidden(a) && !hidden(b) && inner().same_file(a, b);
}

outcome continued_disk::rename_over(const wide_string& from, const wide_string& to) {
    entry* const found = hidden(to);
    if (is_kept_from_writing(to)) return outcome::because(changed_reason);
    if (!found) return inner().rename_over(from, to);
    if (is_same_text(inner(), from, to)) {
        found->what = fate::kept;
        return inner().delete_file(from);
    }
    const outcome renamed = inner().rename_over(from, to);
    found->what = renamed ? fate::replaced : fate::failed;
    return renamed;
}

outcome continued_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                             std::unique_ptr<platform::file>& result) {
    result.reset();
    entry* const found = hidden(path);
    if (how == platform::disposition::create_always && is_kept_from_writing(path))
        return outcome::because(changed_reason);
    if (!found) return inner().open(path, wanted, how, result);
    if (how == platform::disposition::open_existing) return platform::failure::missing;
    if (found->file.state == made_state::folder) return inner().open(path, wanted, how, result);
    if (inner().identity_of(path).names > 1) // the other name keeps what it leads to
        if (const outcome removed = inner().delete_file(path); !removed) return removed;
    const outcome opened = inner().open(path, wanted, platform::disposition::create_always, result);
    if (opened) found->what = fate::replaced;
    return opened;
}

outcome continued_disk::free_space(const wide_string& folder, uint64_t& bytes) {
    const outcome found = inner().free_space(folder, bytes);
    if (!found) return found;
    for (const auto& [key, each] : entries_)
        if (hidden(each.file.path)) bytes += each.now.bytes;
    return found;
}

} // namespace vestra::command
