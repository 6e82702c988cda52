#include "platform/posix/held_folders.h"

#include <fcntl.h>

#include <algorithm>
#include <ctime>

namespace vs::project_resave::platform {

namespace {

constexpr int64_t holding_time = 5'000'000; // nanoseconds

int64_t now() {
    timespec clock{};
    ::clock_gettime(CLOCK_MONOTONIC_COARSE, &clock);
    return int64_t{clock.tv_sec} * 1'000'000'000 + clock.tv_nsec;
}

std::string_view folder_in(std::string_view path) {
    return path.substr(0, std::max<size_t>(path.rfind('/'), 1));
}

// Of a native path, in its text.
const char* name_in(const std::string& path) { return path.c_str() + path.rfind('/') + 1; }

} // namespace

// Null where there is none, or for too long.
held_folders::held_folder* held_folders::find(std::string_view folder) {
    held_folder* const held = std::ranges::find(held_, folder, &held_folder::path);
    if (held == held_.end()) return nullptr;
    if (now() - held->since < holding_time) return held;
    *held = {};
    return nullptr;
}

// Null unless `folder` is a folder.
const held_folders::held_folder* held_folders::follow(std::string_view folder) {
    if (const held_folder* const held = find(folder)) return held;
    std::string path(folder);
    descriptor handle(::open(path.c_str(), O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!handle) return nullptr;
    held_folder& place = held_[oldest_++ % held_.size()];
    place = {std::move(path), std::move(handle), now()};
    return &place;
}

descriptor held_folders::open(const std::string& path, int flags, unsigned mode) {
    const std::lock_guard guard(mutex_);
    const held_folder* const folder = path == "/" ? nullptr : follow(folder_in(path));
    flags |= O_CLOEXEC | O_NONBLOCK;
    if (folder == nullptr) return descriptor(::open(path.c_str(), flags, mode));
    return descriptor(::openat(folder->handle.get(), name_in(path), flags, mode));
}

bool held_folders::status(const std::string& path, struct stat& found) {
    const std::lock_guard guard(mutex_);
    const held_folder* const itself = find(path);
    if (itself != nullptr && ::fstat(itself->handle.get(), &found) == 0 && found.st_nlink > 0) return true;
    const held_folder* const folder = path == "/" ? nullptr : follow(folder_in(path));
    if (folder == nullptr) return ::stat(path.c_str(), &found) == 0;
    return ::fstatat(folder->handle.get(), name_in(path), &found, 0) == 0;
}

bool held_folders::folder_status(const std::string& folder, struct stat& found) {
    const std::lock_guard guard(mutex_);
    const held_folder* held = follow(folder);
    if (held == nullptr || ::fstat(held->handle.get(), &found) != 0) return false;
    if (found.st_nlink > 0) return true;
    *find(folder) = {};
    held = follow(folder);
    return held != nullptr && ::fstat(held->handle.get(), &found) == 0;
}

void held_folders::forget(std::string_view path) {
    const std::lock_guard guard(mutex_);
    for (held_folder& held : held_) {
        const bool begins_so = held.path.starts_with(path);
        if (begins_so && (held.path.size() == path.size() || held.path[path.size()] == '/')) held = {};
    }
}

void held_folders::clear() {
    const std::lock_guard guard(mutex_);
    held_ = {};
}

} // namespace vs::project_resave::platform
