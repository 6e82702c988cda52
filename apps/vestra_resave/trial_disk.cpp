#include "apps/vestra_resave/trial_disk.h"

#include <algorithm>
#include <cstring>

#include "platform/path_text.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;
using platform::open_result;

namespace {

wide_string folder_of(const wide_string& path) { return path_head(path_normalise(path)); }

wide_string key_of_folder(const wide_string& key) { return path_key(path_head(key)); }

class text_file final : public platform::file {
public:
    explicit text_file(std::shared_ptr<std::string> text) : text_(std::move(text)) {}

    size_t read(void* buffer, size_t length) override {
        const size_t count = std::min(length, text_->size() - std::min(position_, text_->size()));
        if (count != 0) std::memcpy(buffer, text_->data() + position_, count);
        position_ += count;
        return count;
    }
    size_t write(const void* bytes, size_t length) override {
        text_->resize(std::max(text_->size(), position_ + length));
        if (length != 0) std::memcpy(text_->data() + position_, bytes, length);
        position_ += length;
        return length;
    }
    bool seek_end() override {
        position_ = text_->size();
        return true;
    }
    uint64_t size() override { return text_->size(); }
    bool close() override { return true; }

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
    return file.text ? file.text->size() : real_.file_size(file.source);
}

bool trial_disk::has_folder(const wide_string& path) {
    return kind_of(folder_of(path)) == entry_kind::folder;
}

// Also where nothing can be opened but the name is taken, by a broken link for one.
bool trial_disk::is_free(const wide_string& path) {
    if (const entry* found = known(path)) return found->kind == entry_kind::none;
    wide_string spelling;
    return kind_of(path) == entry_kind::none &&
           !real_.true_name(folder_of(path), path_file_name(path_normalise(path)), spelling);
}

bool trial_disk::is_readable(const wide_string& path) {
    std::unique_ptr<platform::file> opened;
    return open(path, platform::access::read, platform::disposition::open_existing, opened) !=
           open_result::failed;
}

void trial_disk::put(entry made) {
    const wide_string key = path_key(made.path);
    const auto old = entries_.find(key); // what is replaced keeps its spelling
    if (old != entries_.end() && old->second.kind == entry_kind::file) made.path = old->second.path;
    made.number = ++made_;
    inside_[key_of_folder(key)].insert(key);
    entries_.insert_or_assign(key, std::move(made));
}

void trial_disk::take_away(const wide_string& path) {
    const wide_string key = path_key(path);
    if (real_.kind_of(path) != entry_kind::none) return put({.path = path});
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

entry_kind trial_disk::kind_of(const wide_string& path) {
    const entry* found = known(path);
    return found ? found->kind : real_.kind_of(path);
}

uint64_t trial_disk::file_size(const wide_string& path) {
    const entry* found = known(path);
    if (!found) return real_.file_size(path);
    return found->kind == entry_kind::file ? bytes_of(*found) : 0;
}

bool trial_disk::copy_file(const wide_string& source, const wide_string& target, bool replace) {
    const bool replaces = replace && kind_of(target) == entry_kind::file && !same_file(source, target);
    if (!is_readable(source) || !has_folder(target) || !(replaces || is_free(target))) return false;
    const entry* from = known(source);
    put({.kind = entry_kind::file,
         .path = target,
         .source = from && !from->text ? from->source : source,
         .text = from ? from->text : nullptr});
    return true;
}

bool trial_disk::delete_file(const wide_string& path) {
    if (kind_of(path) != entry_kind::file) return false;
    take_away(path);
    return true;
}

bool trial_disk::create_folder(const wide_string& path) {
    if (!is_free(path) || !has_folder(path)) return false;
    put({.kind = entry_kind::folder, .path = path_normalise(path)});
    return true;
}

bool trial_disk::remove_folder(const wide_string& path) {
    const auto entries = list(path);
    if (!entries || !entries->empty()) return false;
    take_away(path);
    return true;
}

std::optional<std::vector<platform::folder_entry>> trial_disk::list(const wide_string& path) {
    if (kind_of(path) != entry_kind::folder) return std::nullopt;
    auto listed = real_.list(path);
    const auto changed = inside_.find(path_key(path));
    if (changed == inside_.end()) return listed;
    if (!listed && real_.kind_of(path) != entry_kind::none) return std::nullopt;
    if (!listed) listed.emplace();
    std::erase_if(*listed, [&](const platform::folder_entry& each) {
        return changed->second.contains(path_key(path_join(path, each.name)));
    });
    for (const wide_string& key : changed->second)
        if (const entry& made = entries_.at(key); made.kind != entry_kind::none)
            listed->push_back({path_file_name(made.path), made.kind == entry_kind::folder, false});
    std::ranges::sort(*listed, {}, &platform::folder_entry::name);
    return listed;
}

bool trial_disk::true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) {
    const entry* found = name == u"." || name == u".." ? nullptr : known(path_join(folder, name));
    if (!found) return real_.true_name(folder, name, spelling);
    if (found->kind == entry_kind::none) return false;
    spelling = path_file_name(found->path);
    return true;
}

bool trial_disk::same_file(const wide_string& a, const wide_string& b) {
    if (!known(a) && !known(b)) return real_.same_file(a, b);
    return kind_of(a) != entry_kind::none && path_same(a, b);
}

bool trial_disk::rename_over(const wide_string& from, const wide_string& to) {
    const entry* found = known(from);
    if (!found || found->kind != entry_kind::file || kind_of(to) == entry_kind::folder || !has_folder(to))
        return false;
    entry moved = *found;
    moved.path = to;
    take_away(from);
    put(std::move(moved));
    return true;
}

open_result trial_disk::open(const wide_string& path, platform::access wanted, platform::disposition how,
                             std::unique_ptr<platform::file>& result) {
    result.reset();
    if (how == platform::disposition::create_always) {
        if (kind_of(path) == entry_kind::folder || !has_folder(path)) return open_result::failed;
        const auto text = std::make_shared<std::string>();
        put({.kind = entry_kind::file, .path = path, .text = text});
        result = std::make_unique<text_file>(text);
        return open_result::opened;
    }
    const entry* found = known(path);
    if (found && found->text) {
        result = std::make_unique<text_file>(found->text);
        return open_result::opened;
    }
    const bool is_gone = found && found->kind != entry_kind::file;
    if (is_gone || wanted == platform::access::read_write) return open_result::failed;
    return real_.open(found ? found->source : path, wanted, how, result);
}

std::optional<uint64_t> trial_disk::free_space(const wide_string& folder) {
    wide_string level = path_normalise(folder);
    while (real_.kind_of(level + u'\\') != entry_kind::folder && level.size() > path_fixed_length(level))
        level = path_normalise(path_head(level));
    return real_.free_space(level + u'\\');
}

} // namespace vestra::command
