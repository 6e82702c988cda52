// Native paths as text: absolute, without "." and "..", and without separator at the end.
#pragma once

#include <string>
#include <string_view>

namespace vs::project_resave::platform {

// Returns the folder of a path; the root folder for its direct entries and for itself.
std::string_view folder_of(std::string_view path);
// Returns the name in that folder. The result ends where `path` does, so it is zero-terminated if `path` is.
std::string_view name_of(std::string_view path);
// Returns the two with exactly one "/" between them.
std::string joined(std::string_view folder, std::string_view name);
// Returns `path`, with separators of both kinds, below `base`; ".." does not lead above `base`.
std::string below(std::string_view base, std::string_view path);
// Returns the absolute form of a path as a person types it, relative to the current folder; empty if that
// folder no longer exists.
std::string absolute(const std::string& path);

// True if an entry exists under exactly this path, including a broken link. Otherwise errno has the reason.
bool exists_exactly(const std::string& path);

} // namespace vs::project_resave::platform
