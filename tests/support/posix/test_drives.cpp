#include "tests/support/test_drives.h"

#include <stdexcept>

#include "platform/posix/volumes.h"

namespace vs::project_resave {

test_drives::test_drives() {
    for (const char letter : {'C', 'D', 'N'}) {
        std::filesystem::create_directories(root(letter));
        std::string message;
        if (!platform::add_drive(letter + ("=" + root(letter).string()), message))
            throw std::runtime_error(message);
    }
}

test_drives::~test_drives() { platform::mapped_volumes().reset(); }

std::filesystem::path test_drives::root(char letter) const {
    return folder_.native() / std::string(1, letter);
}

bool test_drives::is_of_the_system(const std::filesystem::path&) { return false; }

} // namespace vs::project_resave
