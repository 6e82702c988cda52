// The file operations of a trial disk: reads go to the real disk, changes stay in memory.
#include "apps/vestra_resave/trial_disk.h"

#include <algorithm>
#include <cstring>

#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using platform::failure;
using platform::outcome;

namespace {

wide_string folder_of(const wide_string& path) { return path_head(path_normalise(path)); }

wide_string key_of_folder(const wide_string& key) { return path_key(path_head(key)); }

// A file in memory. It shares its text with the entry, so that a reader sees what was written even before the
// writer closes the file.
class text_file final : public platform::file {
public:
    explicit text_file(std::shared_ptr<std::string> text) : text_(std::move(text)) {}

    outcome read(void* buffer, size_t length, size_t& count) override {
        count = std::min(length, text_->size() - std::min(position_, text_->size()));
        if (count != 0) std::memcpy(buffer, text_->data() + position_, count);
        position_ += count;
        return {};
    }
    outcome write(const void* bytes, size_t length) override {
        text_->resize(std::max(text_->size(), position_ + length));
        if (length != 0) std::memcpy(text_->data() + position_, bytes, length);
        position_ += length;
        return {};
    }
    outcome seek_end() override {
        position_ = text_->size();
        return {};
    }
    uint64_t size() override { return text_->size(); }
    outcome close() override { return {}; }

private:
    std::shared_ptr<std::string> text_;
    size_t position_ = 0;
};

} // namespace

const trial_disk::entry* trial_disk::known(const wide_string& path) const {
    const auto found = entries_.find(path_key(path));
    return found == entries_.end() ? nullptr : &found->second;
}

uint64_t trial_disk::bytes_of(const entry& file) const {
    return file.text ? file.text->size() : real_->file_size(file.source);
}

// If a file is in the way, the error is that of the real disk for using a file as a folder.
outcome trial_disk::has_folder(const wide_string& path) {
    wide_string folder = folder_of(path);
    if (kind_of(folder) == entry_kind::folder) return {};
    // Asking the real disk for the content of the blocking file gives the reason in the words of this
    // operating system.
    std::vector<platform::folder_entry> none; // not used; only the reason is needed
    for (; folder.size() > path_fixed_length(folder); folder = folder_of(folder)) {
        if (kind_of(folder) == entry_kind::none) continue;
        const entry* found = known(folder);
        if (found && found->kind == entry_kind::folder) break;
        if (const outcome listed = real_->list(found ? found->source : folder, none); !listed) return listed;
        break;
    }
    std::unique_ptr<platform::file> nothing;
    // Nothing blocks the way, so the folder is missing; opening a file in it gives the reason for that.
    const outcome opened =
        real_->open(path, platform::access::read, platform::disposition::open_existing, nothing);
    return opened ? failure::missing : opened;
}

// Also detects a name that is taken although it cannot be opened, such as a broken link.
outcome trial_disk::is_free(const wide_string& path) {
    const entry* found = known(path);
    wide_string spelling;
    const bool is_taken =
        found ? found->kind != entry_kind::none
              : kind_of(path) != entry_kind::none ||
                    real_->true_name(folder_of(path), path_file_name(path_normalise(path)), spelling);
    return is_taken ? failure::taken : outcome();
}

outcome trial_disk::is_readable(const wide_string& path) {
    std::unique_ptr<platform::file> opened;
    const outcome result = open(path, platform::access::read, platform::disposition::open_existing, opened);
    // A file that another program has open exists, and may be free by the time of the real run.
    return result.is(failure::in_use) ? outcome() : result;
}

void trial_disk::put(entry made) {
    const wide_string key = path_key(made.path);
    const auto old = entries_.find(key); // an entry that is replaced keeps its spelling
    if (old != entries_.end() && old->second.kind == entry_kind::file) made.path = old->second.path;
    made.number = ++made_;
    inside_[key_of_folder(key)].insert(key);
    entries_.insert_or_assign(key, std::move(made));
}

void trial_disk::take_away(const wide_string& path) {
    const wide_string key = path_key(path);
    // A real entry is hidden by an entry of the kind `none`; one that existed only in memory is forgotten.
    if (real_->kind_of(path) != entry_kind::none) return put({.path = path});
    entries_.erase(key);
    inside_[key_of_folder(key)].erase(key);
}

std::vector<trial_disk::made_file> trial_disk::made_files() const {
    std::vector<const entry*> made;
    for (const auto& [key, each] : entries_)
        if (each.kind == entry_kind::file) made.push_back(&each);
    std::ranges::sort(made, {}, &entry::number);
    std::vector<made_file> files;
    files.reserve(made.size());
    for (const entry* each : made) files.push_back({each->path, each->source, bytes_of(*each)});
    return files;
}

bool trial_disk::has_made(const wide_string& path) const {
    const entry* const found = known(path);
    return found && found->kind != entry_kind::none;
}

platform::entry_status trial_disk::status_of(const wide_string& path) {
    const entry* found = known(path);
    if (!found) return real_->status_of(path);
    if (found->kind == entry_kind::none) return {entry_kind::none, 0, failure::missing};
    // A copy has the size and the time of its source.
    if (found->kind == entry_kind::file && !found->text) return real_->status_of(found->source);
    return {found->kind, found->kind == entry_kind::file ? bytes_of(*found) : 0};
}

outcome trial_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    const bool replaces = replace && kind_of(target) == entry_kind::file && !same_file(source, target);
    outcome result = is_readable(source);
    if (result) result = has_folder(target);
    if (result && !replaces) result = is_free(target);
    if (!result) return result;
    // A copy of a copy refers to the real file, because only that can be read.
    const entry* from = known(source);
    put({.kind = entry_kind::file,
         .path = target,
         .source = from && !from->text ? from->source : source,
         .text = from ? from->text : nullptr});
    return {};
}

outcome trial_disk::delete_file(const wide_string& path) {
    if (const entry_kind kind = kind_of(path); kind != entry_kind::file)
        return kind == entry_kind::none ? failure::missing : outcome::because(u"is a folder");
    take_away(path);
    return {};
}

outcome trial_disk::create_folder(const wide_string& path) {
    outcome result = has_folder(path);
    if (result) result = is_free(path);
    if (result) put({.kind = entry_kind::folder, .path = path_normalise(path)});
    return result;
}

outcome trial_disk::remove_folder(const wide_string& path) {
    std::vector<platform::folder_entry> entries;
    if (const outcome result = list(path, entries); !result) return result;
    if (!entries.empty()) return outcome::because(u"the folder is not empty");
    take_away(path);
    return {};
}

outcome trial_disk::list(const wide_string& path, std::vector<platform::folder_entry>& entries) {
    entries.clear();
    if (kind_of(path) != entry_kind::folder) return failure::missing;
    const outcome listed = real_->list(path, entries);
    const auto changed = inside_.find(path_key(path));
    if (changed == inside_.end()) return listed;
    // A folder that exists only here cannot be listed on the real disk, which is no failure.
    if (!listed && real_->kind_of(path) == entry_kind::folder) return listed;
    std::erase_if(entries, [&](const platform::folder_entry& each) {
        return changed->second.contains(path_key(path_join(path, each.name)));
    });
    for (const wide_string& key : changed->second)
        if (const entry& made = entries_.at(key); made.kind != entry_kind::none)
            entries.push_back({path_file_name(made.path), made.kind == entry_kind::folder, false});
    // In the order in which a disk lists them, because the order of files decides which one is renamed.
    std::ranges::sort(entries, {}, &platform::folder_entry::name);
    return {};
}

bool trial_disk::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    // "." and ".." are no names of entries, but path_join would resolve them to one.
    const entry* found = name == u"." || name == u".." ? nullptr : known(path_join(folder, name));
    if (!found) return real_->true_name(folder, name, spelling);
    if (found->kind == entry_kind::none) return false;
    spelling = path_file_name(found->path);
    return true;
}

// Files in memory have no identity on the disk.
platform::file_identity trial_disk::identity_of(const wide_string& path) {
    return known(path) ? platform::file_identity() : real_->identity_of(path);
}

bool trial_disk::same_file(const wide_string& a, const wide_string& b) {
    if (!known(a) && !known(b)) return real_->same_file(a, b);
    return kind_of(a) != entry_kind::none && path_same(a, b);
}

outcome trial_disk::rename_over(const wide_string& from, const wide_string& to) {
    const entry* found = known(from);
    if (!found && kind_of(from) == entry_kind::file)
        return outcome::because(u"a dry run cannot rename a file of the real disk");
    if (!found || found->kind != entry_kind::file) return failure::missing;
    if (kind_of(to) == entry_kind::folder) return outcome::because(u"a folder is in the way");
    if (const outcome result = has_folder(to); !result) return result;
    entry moved = *found;
    moved.path = to;
    take_away(from);
    put(std::move(moved));
    return {};
}

outcome trial_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                         std::unique_ptr<platform::file>& result) {
    result.reset();
    if (how != platform::disposition::open_existing) {
        const entry_kind there = kind_of(path);
        if (how == platform::disposition::create_new && there != entry_kind::none) return failure::taken;
        if (there == entry_kind::folder) return outcome::because(u"a folder is in the way");
        if (const outcome found = has_folder(path); !found) return found;
        const auto text = std::make_shared<std::string>();
        put({.kind = entry_kind::file, .path = path, .text = text});
        result = std::make_unique<text_file>(text);
        return {};
    }
    const entry* found = known(path);
    if (found && found->text) {
        result = std::make_unique<text_file>(found->text);
        return {};
    }
    if (found && found->kind == entry_kind::folder) return outcome::because(u"is a folder");
    if (found && found->kind == entry_kind::none) return failure::missing;
    if (wanted == platform::access::read_write)
        return outcome::because(u"a dry run cannot change a file of the real disk");
    return real_->open(found ? found->source : path, wanted, how, result);
}

outcome trial_disk::free_space(const wide_string& folder, uint64_t& bytes) {
    // The separator is added again, because path_normalise also removes that of "C:\".
    wide_string level = path_normalise(folder);
    while (real_->kind_of(level + u'\\') != entry_kind::folder && level.size() > path_fixed_length(level))
        level = path_normalise(path_head(level));
    return real_->free_space(level + u'\\', bytes);
}

} // namespace vestra::command
