// Drive letters over folders. Everything of the POSIX layer that touches a file turns its path into a native
// one here; letter case is ignored on the way (posix/folder_names.h).
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

/// A native path, or the reason why there is none.
struct native_answer {
    std::string path;
    outcome result;

    explicit operator bool() const { return bool(result); }
};

/// May be used from any thread. Native paths are absolute, without "." and "..", and have no separator at
/// the end.
class volumes {
public:
    /// Z: is the root folder; the others come from the variable VESTRA_DRIVES ("C=/data/c;N=/mnt/n"), of
    /// which parts in a wrong form are passed over.
    volumes();

    /// Makes `folder` (native, made absolute against the current directory) the drive `letter`, in place of
    /// the folder it had. False if `letter` is none or `folder` does not exist.
    bool add(char letter, const std::string& folder);
    /// The same from a text "C=/data/c".
    bool add_assignment(std::string_view assignment);
    /// Forgets all drives and folders, and begins again as the constructor does. For tests.
    void reset();

    /// All drives in the form of the variable, Z: among them.
    std::string assignments() const;

    /// The native path of a drive path. A path without drive is taken against the current directory, or the
    /// root folder if it begins with one separator. With `must_exist` the entry stands there (it may be a
    /// broken link); without, what does not exist keeps the spelling asked for, behind the part that does.
    /// Fails for an unknown drive, a network path, an embedded zero, an empty path.
    native_answer native(const wide_string& drive_path, bool must_exist);
    /// The same without a look at the disk: the spelling is the one asked for.
    native_answer as_asked(const wide_string& drive_path) const;
    /// For what did not stand under the native path `asked`: the path of what its folder lists by that name
    /// in any spelling, also in the one asked for if it came meanwhile.
    std::optional<std::string> as_listed(const std::string& asked);
    /// What stands under a drive path, in the spelling asked for, which is nearly always the right one, or
    /// else in another; links are followed.
    std::optional<struct stat> status(const wide_string& drive_path);
    /// What `native` gives without `must_exist`; cheaper where the name is likely to be free.
    native_answer to_create(const wide_string& drive_path);

    /// The path on the drive whose folder is the longest that holds `native`, which is made absolute against
    /// the current directory first and need not exist.
    wide_string drive_path(const std::string& native) const;

    /// The names of folders, for whoever changes them or asks for a spelling.
    folder_names& names() { return names_; }
    /// The folders asked for last, for whoever opens or looks at what is in them.
    held_folders& held() { return held_; }

private:
    std::string spelled(const std::string& native, outcome& exists);
    std::string spelled_by_listing(const std::string& native, bool& exists);

    std::array<std::string, 26> drives_; ///< native folders by letter; empty where there is no drive
    held_folders held_;
    folder_names names_{held_};
    mutable std::mutex mutex_;
};

/// The volumes of this process.
volumes& mapped_volumes();

} // namespace vs::project_resave::platform
