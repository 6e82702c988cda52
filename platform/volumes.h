// Converts between the bundle's paths (Windows form, with a drive) and the operating system's. The bundle
// itself never needs this: it is for programs that take paths from a person and for libraries that open files
// themselves.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Makes a folder a drive. `assignment` is "C=/data/c", as `program_arguments` returns it; an existing drive
// is reassigned. Returns false and sets `message`, which is meant for the user and includes the operating
// system's reason, if the form is wrong, the folder cannot be reached, the drive is Z: (always the root
// folder), or the target has its own drives (Windows).
bool add_drive(std::string_view assignment, std::string& message);

// Checks the variable VESTRA_DRIVES, which defines the drives that exist without `add_drive`. Returns false
// and sets `message`, which is meant for the user, if one of its entries was skipped or repeats a drive.
// Always true if the target has its own drives (Windows).
bool check_drive_variable(std::string& message);

// Returns the full path, with its drive, of a path as a person types it. A path with a drive is returned
// unchanged. In any other one "." and ".." are resolved, and it gets the drive whose folder contains it most
// closely, or else Z:. Empty for an empty argument.
wide_string drive_path(std::string_view argument);

// Makes a folder the current one of the process, from which paths without a drive start. On failure nothing
// changes.
outcome set_current_folder(const wide_string& folder);

// Returns when an entry of a folder was last created, renamed or removed, or when a file was last written;
// the smallest value if neither exists.
std::filesystem::file_time_type folder_time(const wide_string& folder);
// Two changes within this time can leave a folder with the same `folder_time`. It is longer than the
// resolution of the clock that file systems use.
inline constexpr std::chrono::milliseconds folder_time_step(20);

// Returns the operating system's own path of a drive path: of the existing entry, looked up without letter
// case, or of the one that would be created. Empty if the path cannot be expressed.
std::filesystem::path native_path(const wide_string& path);
// Returns the same as UTF-8 text, for display only and not to be opened: bytes that are not UTF-8 are
// replaced. On Windows it returns the path unchanged.
std::string native_text(const wide_string& path);

} // namespace vs::project_resave::platform
