// Look-up of names without letter case in file systems that know only exact names.
//
// The folded names of a folder are cached, and the cache is checked against the folder's times at each use.
// Those times are too coarse to show two changes in quick succession, so the layer itself reports what it
// creates and removes. This also means that a folder that is being filled is not read again for each missing
// name.
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
    // `folders` must outlive this object.
    explicit folder_names(held_folders& folders) : held_(folders) {}

    // Returns the spelling that `folder` has for `name`: the exact one if it exists, else the first in byte
    // order; nothing if there is none. Sets `is_folder` to whether the folder could be read under exactly
    // this path. Once the folder has been read, the cost does not depend on the number of entries.
    std::optional<std::string> find(const std::string& folder, std::string_view name, bool& is_folder);

    // Must be called around a change that this process makes in the folder of `path`: before_change() first,
    // unless `find` was called just before; then created() or removed(), if the change was made. Without
    // these calls the folder is read again.
    void before_change(const std::string& path);
    void created(const std::string& path);
    void removed(const std::string& path);

    // Clears the cache.
    void clear();

private:
    struct folder_times {
        int64_t modified = 0; ///< both in nanoseconds since the epoch
        int64_t changed = 0;
        bool operator==(const folder_times&) const = default;
    };
    struct content {
        std::unordered_multimap<size_t, std::string> by_folded; // key: hash of the folded name
        folder_times seen;                                      // the folder's times when the names were read
        folder_times own_change; // the folder's times after the last change by this process
        bool settled = false;    // false if another change may have come too soon after the last one to be
                                 // visible in the times
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
