// Native paths as text: absolute, without "." and "..", and without separator at the end.
#pragma once

#include <string>
#include <string_view>

namespace vs::project_resave::platform {

// The folder of a path; the root folder for what is in it, and for itself.
std::string_view folder_of(std::string_view path);
// The name in that folder. It ends where `path` does, so it ends with a zero if `path` does.
std::string_view name_of(std::string_view path);
std::string joined(std::string_view folder, std::string_view name);
// `path`, with separators of both kinds, below `base`, which ".." does not leave.
std::string below(std::string_view base, std::string_view path);
// A path as a person types it, made whole against the current folder; empty if that is gone.
std::string absolute(const std::string& path);

// True if an entry exists under exactly this path, a broken link too; else errno has the reason.
bool exists_exactly(const std::string& path);

} // namespace vs::project_resave::platform
