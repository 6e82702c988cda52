// Between the paths of the bundle (Windows form, with a drive) and those of the system. The bundle itself
// never needs this: it serves programs that take paths from a person and libraries that open files alone.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

/// Makes a folder a drive: `assignment` is "C=/data/c" as `program_arguments` tells it. A drive that exists
/// is moved. False with a reason for the user in `message`: the form is wrong, the folder does not exist, or
/// the target has drives of its own (Windows).
bool add_drive(std::string_view assignment, std::string& message);

/// The whole path, with its drive, of a path as a person types it. One that already names a drive is taken
/// as it stands. From any other one "." and ".." are resolved, and it gets the drive of the longest folder
/// that holds it, else Z:. Empty for an empty argument.
wide_string drive_path(std::string_view argument);

/// Makes a folder the current one of the process, against which paths without a drive are taken. On failure
/// nothing is changed.
outcome set_current_folder(const wide_string& folder);

/// When an entry of a folder was last made, renamed or removed, or a file was last written; the least value
/// if there is neither.
std::filesystem::file_time_type folder_time(const wide_string& folder);

/// The system's own path of a drive path: of the existing entry, looked up without letter case, or of the
/// one that would be created. Empty if the path cannot be expressed.
std::filesystem::path native_path(const wide_string& path);

} // namespace vs::project_resave::platform
