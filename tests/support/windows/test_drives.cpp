#include "tests/support/test_drives.h"

#include <algorithm>
#include <array>
#include <cstdlib>
#include <stdexcept>

namespace vs::project_resave {

namespace {

void remove_what_tests_made() {
    std::error_code empty, failed; // an empty root has no listing
    for (const char* const root : {"C:\\", "D:\\", "N:\\"})
        for (const auto& entry : std::filesystem::directory_iterator(root, empty))
            if (!test_drives::is_of_the_system(entry.path()))
                std::filesystem::remove_all(entry.path(), failed);
}

} // namespace

test_drives::test_drives() {
    if (std::getenv("VESTRA_TEST_DRIVES") == nullptr)
        throw std::runtime_error("the drives of this system are not made for tests");
    remove_what_tests_made();
}

test_drives::~test_drives() { remove_what_tests_made(); }

std::filesystem::path test_drives::root(char letter) const { return std::string(1, letter) + ":\\"; }

bool test_drives::is_of_the_system(const std::filesystem::path& entry) {
    constexpr std::array<std::wstring_view, 5> names{L"windows", L"users", L"Program Files",
                                                     L"Program Files (x86)", L"ProgramData"};
    return entry.parent_path() == entry.root_path() &&
           std::ranges::find(names, entry.filename().wstring()) != names.end();
}

} // namespace vs::project_resave
