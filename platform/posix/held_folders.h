// Folders kept open, so that looking at what is in them costs no walk along the whole path.
//
// Up to four stay open, the ones used last. For some 5 ms a path is taken to lead to the same folder as
// before, so a folder that another program renames or replaces is noticed that much later. Therefore existing
// entries are opened and looked at this way, but nothing is created. What is in a folder is looked at anew
// each time.
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

// Paths are native, absolute and without separator at the end. May be used from any thread; one that waits
// for a slow disk makes the others wait.
class held_folders {
public:
    // Opens what is there, without waiting as a pipe would make us. `flags` as the operating system's open
    // takes them, without O_CREAT.
    outcome open(const std::string& path, int flags, descriptor& opened);
    // Sets `found` to what exists under exactly this path, following links; fails if nothing does. `link` is
    // set to whether the path itself is one, as far as this is known without a further question.
    enum class link_state { no, yes, unknown };
    outcome status(const std::string& path, struct stat& found, link_state& link);
    // The same for what must be a folder. A removed folder, or one created in its place, is noticed at once.
    bool folder_status(const std::string& folder, struct stat& found);

    // Must be called when an entry was removed or renamed: closes it and the folders below it.
    void forget(std::string_view path);
    void clear();

private:
    struct held_folder {
        std::string path;
        descriptor handle{-1};
        int64_t since = 0; ///< when the path was followed, in nanoseconds
    };

    held_folder* follow(std::string_view folder);
    template <class Call>
    int reach(const std::string& path, const Call& call);

    std::array<held_folder, 4> held_;
    size_t oldest_ = 0;
    std::mutex mutex_;
};

} // namespace vs::project_resave::platform
