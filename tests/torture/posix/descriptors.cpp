#include <fcntl.h>
#include <unistd.h>

#include <filesystem>

#include "tests/torture/torture.h"

namespace vs::project_resave::torture {

open_descriptors descriptors() {
    open_descriptors open;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const int flags = ::fcntl(std::stoi(entry.path().filename().string()), F_GETFL);
        ++((flags & O_PATH) != 0 ? open.folders : open.files);
    }
    return open;
}

} // namespace vs::project_resave::torture
