// Look-up of names without letter case in file systems that know only exact names.
//
// The folded names of a folder are kept, and checked against the folder's times at each use. As those times
// are too coarse to show two changes in quick succession, the layer reports what it creates and removes
// itself; so a folder that is being filled is not read again for each name that it lacks.
#pragma once

#include <sys/stat.h>

#include <cstddef>
#include <cstdint>
#include <map>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

#include "platform/posix/held_folders.h"

namespace vs::project_resave::platform {

// Paths are native, absolute and without separator at the end. May be used from any thread.
class folder_names {
public:
    // Asks `folders`, which outlives it.
    explicit folder_names(held_folders& folders) : held_(folders) {}

    // Returns the spelling that `folder` has for `name`: the exact one if it exists, else the first in byte
    // order; nothing if there is none. Sets `is_folder` to whether the folder could be read under exactly
    // this path. Costs the same for any number of entries, once the folder has been read.
    std::optional<std::string> find(const std::string& folder, std::string_view name, bool& is_folder);

    // Must be called around a change that this process makes in the folder of `path`: the first before it,
    // unless `find` was called just now; then one of the others if the change was made. Without them the
    // folder is read again.
    void before_change(const std::string& path);
    void created(const std::string& path);
    void removed(const std::string& path);

    // Forgets all folders.
    void clear();

private:
    struct folder_times {
        int64_t modified = 0; ///< both in nanoseconds since the epoch
        int64_t changed = 0;
        bool operator==(const folder_times&) const = default;
    };
    struct content {
        std::unordered_multimap<size_t, std::string> by_folded; ///< the hash of the folded name is enough
        folder_times seen;                                      ///< the times for which the names hold
        folder_times own_change; ///< the times after the last change by this process
        bool settled = false;    ///< false: a change may have come too soon after the last one to show
    };
    using identity = std::pair<dev_t, ino_t>;
    static folder_times times_of(const struct stat& status);
    bool read(const std::string& folder, const struct stat& status, content& names);
    content* current(const std::string& folder);
    void note_own_change(const std::string& path, bool is_present);
    content* kept(const std::string& folder, folder_times& now);

    held_folders& held_;
    std::map<identity, content> folders_;
    std::mutex mutex_;
};

} // namespace vs::project_resave::platform
