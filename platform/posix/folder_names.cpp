// A cache of folder listings, keyed by folded name, so that a look-up without letter case does not read the
// folder each time.

#include "platform/posix/folder_names.h"

#include <dirent.h>
#include <fcntl.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <ctime>
#include <memory>

#include "platform/posix/native_paths.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

constexpr int64_t settling_time = std::chrono::nanoseconds(folder_time_step).count();

int64_t nanoseconds(const timespec& time) { return int64_t{time.tv_sec} * 1'000'000'000 + time.tv_nsec; }

size_t key_of(std::string_view name) { return std::hash<wide_string>()(folded(from_utf8(name))); }

bool is_same_name(std::string_view a, std::string_view b) {
    return a == b || folded(from_utf8(a)) == folded(from_utf8(b));
}

} // namespace

std::optional<std::string> folder_names::find(const std::string& folder, std::string_view name,
                                              bool& is_folder) {
    const std::lock_guard guard(mutex_);
    const content* const names = current(folder);
    is_folder = names != nullptr;
    if (!is_folder) return std::nullopt;
    const std::string* best = nullptr;
    const auto [first, last] = names->by_folded.equal_range(key_of(name));
    // The hash only narrows the search, and another program may have removed the entry: both are checked.
    for (auto entry = first; entry != last; ++entry) {
        const std::string& spelling = entry->second;
        if (!is_same_name(spelling, name) || !exists_exactly(joined(folder, spelling))) continue;
        if (spelling == name) return spelling;
        if (best == nullptr || spelling < *best) best = &spelling;
    }
    return best != nullptr ? std::optional(*best) : std::nullopt;
}

folder_names::folder_times folder_names::times_of(const struct stat& status) {
    return {nanoseconds(status.st_mtim), nanoseconds(status.st_ctim)};
}

// Returns the current names, after reading them again if necessary; null if `folder` is not a readable
// folder.
folder_names::content* folder_names::current(const std::string& folder) {
    struct stat status {};
    if (!held_.folder_status(folder, status)) return nullptr;
    content& names = folders_[{status.st_dev, status.st_ino}];
    if (names.settled && names.seen == times_of(status)) return &names;
    return read(folder, status, names) ? &names : nullptr;
}

bool folder_names::read(const std::string& folder, const struct stat& status, content& names) {
    names.by_folded.clear();
    names.settled = false;
    // Taken before reading, so that a change during the reading counts as recent.
    timespec now{};
    ::clock_gettime(CLOCK_REALTIME_COARSE, &now);
    descriptor opened;
    struct stat itself {};
    const bool is_same = held_.open(joined(folder, "."), O_RDONLY | O_DIRECTORY, opened) &&
                         ::fstat(opened.get(), &itself) == 0 && itself.st_dev == status.st_dev &&
                         itself.st_ino == status.st_ino;
    if (!is_same) return false; // another program has just put a different folder in its place
    const std::unique_ptr<DIR, int (*)(DIR*)> listing(::fdopendir(opened.get()), ::closedir);
    if (!listing) return false;
    opened.release(); // the listing closes it
    errno = 0;        // readdir does not reset it at the end of the listing
    while (const dirent* const entry = ::readdir(listing.get())) {
        const std::string_view name = entry->d_name;
        if (name != "." && name != "..") names.by_folded.emplace(key_of(name), name);
        errno = 0;
    }
    if (errno != 0) return false;
    names.seen = times_of(status);
    // Names read shortly after another program's change are read again until that change is old enough to be
    // distinguished from a later one by its time. After this process's own changes they are accepted as they
    // are; otherwise a folder that is being filled would be read at each look-up.
    names.settled = names.seen == names.own_change || nanoseconds(now) - names.seen.changed > settling_time;
    return true;
}

folder_names::content* folder_names::kept(const std::string& folder, folder_times& now) {
    struct stat status {};
    if (!held_.folder_status(folder, status)) return nullptr;
    now = times_of(status);
    const auto found = folders_.find({status.st_dev, status.st_ino});
    return found != folders_.end() ? &found->second : nullptr;
}

void folder_names::before_change(const std::string& path) {
    const std::lock_guard guard(mutex_);
    folder_times now;
    content* const names = kept(std::string(folder_of(path)), now);
    // Another program changed the folder since it was read: the times recorded after this process's own
    // change must not hide that.
    if (names != nullptr && names->seen != now) names->settled = false;
}

void folder_names::created(const std::string& path) { note_own_change(path, true); }

void folder_names::removed(const std::string& path) { note_own_change(path, false); }

void folder_names::note_own_change(const std::string& path, bool is_present) {
    const std::lock_guard guard(mutex_);
    held_.forget(path);
    folder_times now;
    content* const names = kept(std::string(folder_of(path)), now);
    if (names == nullptr) return;
    names->seen = names->own_change = now;
    const size_t key = key_of(name_of(path));
    const auto [first, last] = names->by_folded.equal_range(key);
    const auto known =
        std::find_if(first, last, [&](const auto& entry) { return entry.second == name_of(path); });
    if (is_present && known == last) names->by_folded.emplace(key, name_of(path));
    if (!is_present && known != last) names->by_folded.erase(known);
}

void folder_names::clear() {
    const std::lock_guard guard(mutex_);
    folders_.clear();
}

} // namespace vs::project_resave::platform
