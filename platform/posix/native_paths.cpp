// Native paths as text. These functions run for every file of a project, so most of them avoid the standard
// library's paths, which allocate for each part.
#include "platform/posix/native_paths.h"

#include <sys/stat.h>

#include <algorithm>
#include <filesystem>

namespace vs::project_resave::platform {

std::string_view folder_of(std::string_view path) {
    const size_t slash = path.rfind('/');
    return slash == 0 || slash == std::string_view::npos ? "/" : path.substr(0, slash);
}

std::string_view name_of(std::string_view path) { return path.substr(path.rfind('/') + 1); }

std::string joined(std::string_view folder, std::string_view name) {
    std::string path;
    path.reserve(folder.size() + 1 + name.size());
    path = folder;
    if (!path.ends_with('/')) path += '/';
    return path.append(name);
}

std::string below(std::string_view base, std::string_view path) {
    std::string result(base);
    if (result.ends_with('/')) result.pop_back();
    const size_t top = result.size();
    result.reserve(base.size() + path.size() + 1);
    while (!path.empty()) {
        const size_t end = std::min(path.find_first_of("\\/"), path.size());
        const std::string_view piece = path.substr(0, end);
        path.remove_prefix(std::min(end + 1, path.size()));
        if (piece.empty() || piece == ".") continue;
        if (piece != "..")
            result.append("/").append(piece);
        else if (result.size() > top)
            result.erase(result.rfind('/'));
    }
    return result.empty() ? "/" : result;
}

std::string absolute(const std::string& path) {
    std::error_code failed;
    std::string whole = std::filesystem::absolute(path, failed).lexically_normal().native();
    if (whole.size() > 1 && whole.ends_with('/')) whole.pop_back();
    return failed ? std::string() : whole;
}

bool exists_exactly(const std::string& path) {
    struct stat status {};
    return ::lstat(path.c_str(), &status) == 0;
}

} // namespace vs::project_resave::platform
