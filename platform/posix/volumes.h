// Maps drive letters to folders. Everything in the POSIX layer that accesses a file gets its native path
// here. Letter case is ignored during that look-up (posix/folder_names.h).
#pragma once

#include <sys/stat.h>

#include <array>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>

#include "platform/outcome.h"
#include "platform/posix/folder_names.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// A native path, or the reason why a path has none.
struct native_answer {
    std::string path;
    outcome result;
    bool exists = false; // set by `to_create` alone

    explicit operator bool() const { return bool(result); }
};

// May be used from any thread. Native paths are absolute, without "." and "..", and have no separator at
// the end.
class volumes {
public:
    // Z: is the root folder. The other drives come from the variable VESTRA_DRIVES ("C=/data/c;N=/mnt/n");
    // malformed parts of it are skipped.
    volumes();

    // Makes `folder` (native, relative to the current folder) the drive `letter`, replacing an earlier
    // assignment. Fails if `letter` is not a letter or `folder` cannot be reached.
    outcome add(char letter, const std::string& folder);
    // The same for a text "C=/data/c".
    outcome add_assignment(std::string_view assignment);
    // Removes all drives, clears the caches and starts again as the constructor does. For tests.
    void reset();

    // Returns all drives, including Z:, in the form of the variable.
    std::string assignments() const;

    // Returns the native path of a drive path. A path without drive starts from the current folder, or from
    // the root folder if it begins with one separator. With `must_exist` it fails if there is no such entry;
    // a broken link is an entry. Without it, the part that does not exist keeps the given spelling. Fails for
    // an unknown drive, a network path, an embedded zero and an empty path.
    native_answer native(const wide_string& drive_path, bool must_exist);
    // Does the same without accessing the disk; the result keeps the given spelling.
    native_answer as_asked(const wide_string& drive_path) const;
    // For a native path that does not exist in the spelling `asked`: returns the path in the spelling that
    // its folder lists, or nothing. Also finds the spelling `asked` if it was created meanwhile.
    std::optional<std::string> as_listed(const std::string& asked);
    // Sets `found` to the status of what exists under a drive path, following links. Tries the given spelling
    // first, which is nearly always right, and then the others. `link` is that of `held_folders::status`.
    outcome status(const wide_string& drive_path, struct stat& found, held_folders::link_state& link);
    // Returns the same as `native` without `must_exist`, and whether there is such an entry; cheaper if the
    // name is likely to be free.
    native_answer to_create(const wide_string& drive_path);

    // Returns the drive path of `native`, on the drive whose folder contains it most closely. `native` is
    // relative to the current folder and need not exist.
    wide_string drive_path(const std::string& native) const;

    // The cached names of folders, for code that changes folders or asks for a spelling.
    folder_names& names() { return names_; }
    // The folders held open, for code that opens or examines their entries.
    held_folders& held() { return held_; }

private:
    std::string spelled(const std::string& native, outcome& exists);
    std::string spelled_by_listing(const std::string& native, bool& exists);

    std::array<std::string, 26> drives_; // native folders by letter; empty for a letter without drive
    held_folders held_;
    folder_names names_{held_};
    mutable std::mutex mutex_;
};

// Returns the volumes of this process.
volumes& mapped_volumes();

} // namespace vs::project_resave::platform
