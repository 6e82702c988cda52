#include <fcntl.h>
#include <unistd.h>

#include <charconv>
#include <filesystem>

#include "tests/torture/torture.h"

namespace vs::project_resave::torture {

open_descriptors descriptors() {
    open_descriptors open;
    for (const auto& entry : std::filesystem::directory_iterator("/proc/self/fd")) {
        const std::string number = entry.path().filename().string();
        int handle = 0;
        std::from_chars(number.data(), number.data() + number.size(), handle);
        const int flags = ::fcntl(handle, F_GETFL);
        ++((flags & O_PATH) != 0 ? open.folders : open.files);
    }
    return open;
}

} // namespace vs::project_resave::torture
