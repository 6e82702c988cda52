// The parts of the operating system's object that both targets share: the current override, the progress of
// copies, and the walk over a tree of folders.

#include "platform/system.h"

#include <algorithm>
#include <utility>

#include "platform/path_text.h"
#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

system* override_in_force = nullptr;

std::function<void(uint64_t)>& watch_in_force() {
    static std::function<void(uint64_t)> watch;
    return watch;
}

std::function<void(const void*, size_t)>& content_watch_in_force() {
    static std::function<void(const void*, size_t)> watch;
    return watch;
}

// Walks a tree of folders in depth. It remembers the folders above the current one, because a link to one of
// them would make the walk endless.
class tree_walk {
public:
    tree_walk(system& files, const wide_string& start) : files_(files) {
        // Also the folders above the start: a link can lead to one of them as well.
        for (size_t at = start.find_first_of(path_separators); at != wide_string::npos;
             at = start.find_first_of(path_separators, at + 1))
            holders_.push_back(start.substr(0, at + 1));
        enter(start);
    }

    std::vector<tree_entry> entries;
    std::vector<unread_folder> unread;

private:
    void enter(const wide_string& folder) {
        holders_.push_back(folder);
        std::vector<folder_entry> listed;
        if (const outcome read = files_.list(folder, listed); !read) unread.push_back({folder, read});
        for (const folder_entry& entry : listed) {
            wide_string path = path_with_separator(folder) + entry.name;
            entries.push_back({path, entry.is_folder});
            if (entry.is_folder && !(entry.is_link && leads_back(path))) enter(path);
        }
        holders_.pop_back();
    }

    bool leads_back(const wide_string& link) {
        return std::ranges::any_of(holders_,
                                   [&](const auto& folder) { return files_.same_file(link, folder); });
    }

    system& files_;
    std::vector<wide_string> holders_; // the current folder and those above it, up to the drive
};

} // namespace

outcome file::read_whole(void* buffer, size_t length) {
    size_t count = 0;
    const outcome result = read(buffer, length, count);
    // A file that became shorter since its size was asked for.
    return result && count < length ? outcome::because(u"the file ended too soon") : result;
}

std::filesystem::file_time_type system::time_of_folder(const wide_string& path) { return folder_time(path); }

bool system::same_file(const wide_string& a, const wide_string& b) {
    const file_identity first = identity_of(a);
    return first && first == identity_of(b);
}

transfer_watch::transfer_watch(std::function<void(uint64_t)> moved) { watch_in_force() = std::move(moved); }

transfer_watch::~transfer_watch() { watch_in_force() = nullptr; }

void note_transfer(uint64_t bytes) {
    if (const auto& watch = watch_in_force()) watch(bytes);
}

content_watch::content_watch(std::function<void(const void*, size_t)> seen) {
    content_watch_in_force() = std::move(seen);
}

content_watch::~content_watch() { content_watch_in_force() = nullptr; }

bool is_content_watched() { return content_watch_in_force() != nullptr; }

void note_content(const void* bytes, size_t length) {
    if (const auto& watch = content_watch_in_force()) watch(bytes, length);
}

std::vector<folder_entry> entries_or_none(system& files, const wide_string& folder) {
    std::vector<folder_entry> entries;
    files.list(folder, entries);
    return entries;
}

system& current_system() { return override_in_force != nullptr ? *override_in_force : operating_system(); }

system_override::system_override(system& replacement)
    : previous_(std::exchange(override_in_force, &replacement)) {}

system_override::~system_override() { override_in_force = previous_; }

std::vector<tree_entry> list_tree(system& files, const wide_string& folder,
                                  std::vector<unread_folder>* unread) {
    tree_walk walk(files, folder);
    if (unread != nullptr) *unread = walk.unread;
    return std::move(walk.entries);
}

} // namespace vs::project_resave::platform
