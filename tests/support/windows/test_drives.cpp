#include "tests/support/test_drives.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

namespace vs::project_resave {

namespace {

constexpr std::array<std::wstring_view, 5> of_the_system{L"windows", L"users", L"Program Files",
                                                         L"Program Files (x86)", L"ProgramData"};

void remove_what_tests_made(const std::filesystem::path& root) {
    for (const auto& entry : std::filesystem::directory_iterator(root))
        if (std::ranges::find(of_the_system, entry.path().filename().wstring()) == of_the_system.end())
            std::filesystem::remove_all(entry.path());
}

} // namespace

test_drives::test_drives() {
    if (std::getenv("VESTRA_TEST_DRIVES") == nullptr)
        throw std::runtime_error("the drives of this system are not made for tests");
    for (const char letter : {'C', 'D', 'N'}) remove_what_tests_made(root(letter));
}

test_drives::~test_drives() {
    for (const char letter : {'C', 'D', 'N'}) remove_what_tests_made(root(letter));
}

std::filesystem::path test_drives::root(char letter) const { return std::string(1, letter) + ":\\"; }

} // namespace vs::project_resave
