// Drive letters for folders. All of the POSIX layer that uses a file turns its path into a native one here;
// letter case is ignored on the way (posix/folder_names.h).
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

// A native path, or the reason why there is none.
struct native_answer {
    std::string path;
    outcome result;

    explicit operator bool() const { return bool(result); }
};

// May be used from any thread. Native paths are absolute, without "." and "..", and have no separator at
// the end.
class volumes {
public:
    // Z: is the root folder; the others come from the variable VESTRA_DRIVES ("C=/data/c;N=/mnt/n"), parts
    // of which are skipped if their form is wrong.
    volumes();

    // Makes `folder` (native, relative to the current folder) the drive `letter`, in place of the folder it
    // had. Fails if `letter` is not a letter or `folder` cannot be reached.
    outcome add(char letter, const std::string& folder);
    // The same for a text "C=/data/c".
    outcome add_assignment(std::string_view assignment);
    // Forgets all drives and folders and starts again as the constructor does. For tests.
    void reset();

    // Returns all drives in the form of the variable, including Z:.
    std::string assignments() const;

    // Returns the native path of a drive path. A path without drive starts from the current folder, or from
    // the root folder if it begins with one separator. With `must_exist` it fails if there is no such entry
    // (a broken link is one); without, the part that does not exist keeps the spelling asked for. Fails for
    // an unknown drive, a network path, an embedded zero, an empty path.
    native_answer native(const wide_string& drive_path, bool must_exist);
    // The same without looking at the disk: the spelling is the one asked for.
    native_answer as_asked(const wide_string& drive_path) const;
    // For the native path `asked` under which nothing exists: returns the path of what its folder lists by
    // that name in any spelling, also in the one asked for if it was created meanwhile.
    std::optional<std::string> as_listed(const std::string& asked);
    // Sets `found` to what exists under a drive path, in the spelling asked for, which is nearly always the
    // right one, or else in another; links are followed. `link` is that of `held_folders::status`.
    outcome status(const wide_string& drive_path, struct stat& found, held_folders::link_state& link);
    // Returns what `native` does without `must_exist`, and whether there is such an entry; cheaper where the
    // name is likely to be free.
    native_answer to_create(const wide_string& drive_path, bool& exists);

    // Returns the path on the drive with the longest folder that contains `native`, which is relative to the
    // current folder and need not exist.
    wide_string drive_path(const std::string& native) const;

    // The names of folders, for those who change them or ask for a spelling.
    folder_names& names() { return names_; }
    // The folders asked for last, for those who open or look at what is in them.
    held_folders& held() { return held_; }

private:
    std::string spelled(const std::string& native, outcome& exists);
    std::string spelled_by_listing(const std::string& native, bool& exists);

    std::array<std::string, 26> drives_; ///< native folders by letter; empty where there is no drive
    held_folders held_;
    folder_names names_{held_};
    mutable std::mutex mutex_;
};

// The volumes of this process.
volumes& mapped_volumes();

} // namespace vs::project_resave::platform
