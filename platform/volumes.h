// Between the paths of the bundle (Windows form, with a drive) and those of the operating system. The bundle
// itself never needs this: it is for programs that take paths from a person and for libraries that open files
// by themselves.
#pragma once

#include <chrono>
#include <filesystem>
#include <string>
#include <string_view>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Makes a folder a drive. `assignment` is "C=/data/c", as `program_arguments` returns it; a drive that
// exists is moved. Returns false and sets `message`, which is for the user and has the operating system's
// reason, if the form is wrong, the folder cannot be reached, the drive is Z:, which is always the root
// folder, or the target has drives of its own (Windows).
bool add_drive(std::string_view assignment, std::string& message);

// Checks the variable VESTRA_DRIVES, of which the drives come that are there without `add_drive`. Returns
// false and sets `message`, which is for the user, if one of its entries was skipped or names a drive again.
// Always true where the target has drives of its own (Windows).
bool check_drive_variable(std::string& message);

// Returns the full path, with its drive, of a path as a person types it. One that already has a drive is
// returned as it is. In any other one "." and ".." are resolved, and it gets the drive of the longest folder
// that contains it, else Z:. Empty for an empty argument.
wide_string drive_path(std::string_view argument);

// Makes a folder the current one of the process, from which paths without a drive start. On failure nothing
// is changed.
outcome set_current_folder(const wide_string& folder);

// Returns when an entry of a folder was last created, renamed or removed, or when a file was last written;
// the smallest value if there is neither.
std::filesystem::file_time_type folder_time(const wide_string& folder);
// Two changes within this time can leave a folder with the same `folder_time`: it is longer than the step of
// the clock behind it.
inline constexpr std::chrono::milliseconds folder_time_step(20);

// Returns the operating system's own path of a drive path: of the existing entry, looked up without letter
// case, or of the one that would be created. Empty if the path cannot be expressed.
std::filesystem::path native_path(const wide_string& path);
// Returns the same as text in UTF-8, to be read and not to be opened: bytes that are no UTF-8 are replaced.
// On Windows the path as it is.
std::string native_text(const wide_string& path);

} // namespace vs::project_resave::platform
