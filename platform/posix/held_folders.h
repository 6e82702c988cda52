// Keeps folders open, so that an access to one of their entries does not walk the whole path.
//
// Up to four folders stay open, the most recently opened ones. For a quarter of a second a path is assumed to
// lead to the same folder as before, so a folder that another program renames or replaces is noticed that
// much later. Therefore this is used to open and examine existing entries, but never to create one. The
// entries of a folder are not cached.
#pragma once

#include <sys/stat.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/outcome.h"
#include "platform/posix/descriptor.h"

namespace vs::project_resave::platform {

// Paths are native, absolute and without separator at the end. May be used from any thread; a thread that
// waits for a slow disk makes the others wait.
class held_folders {
public:
    // Opens an existing entry without blocking on a pipe. `flags`, without O_CREAT, are those of the
    // operating system's open.
    outcome open(const std::string& path, int flags, descriptor& opened);
    // Whether a path is a link; unknown if the answer came from a folder that is held open.
    enum class link_state { no, yes, unknown };
    // Sets `found` to the status of what exists under exactly this path, following links, and `link` to
    // whether the path itself is one; fails if nothing exists.
    outcome status(const std::string& path, struct stat& found, link_state& link);
    // Does the same for a folder and returns false if there is none. Notices at once if the folder was
    // removed, or removed and created again.
    bool folder_status(const std::string& folder, struct stat& found);

    // Closes the folder `path` and all folders below it. Must be called after an entry was removed or
    // renamed.
    void forget(std::string_view path);
    // Closes all folders.
    void clear();

private:
    struct held_folder {
        std::string path;
        descriptor handle{-1};
        int64_t since = 0; // when the folder was opened, in nanoseconds
    };

    held_folder* follow(std::string_view folder);
    template <class Call>
    int reach(const std::string& path, const Call& call);

    std::array<held_folder, 4> held_;
    size_t oldest_ = 0;
    std::mutex mutex_;
};

} // namespace vs::project_resave::platform
