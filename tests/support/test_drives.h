// The drives C:, D: and N: for a test, without any file of its own on them at first; one at a time.
//
// On Linux they are folders of a temporary one, and drives of the process while this lives. On Windows they
// are the system's own, on disks that were made for tests (see tools/run_under_wine); what the test left
// there is removed.
#pragma once

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

class test_drives {
public:
    test_drives();
    ~test_drives();

    // The native path of a drive's root.
    std::filesystem::path root(char letter) const;

    // True for what the system has in the root of its own disk.
    static bool is_of_the_system(const std::filesystem::path& entry);

private:
    temporary_folder folder_;
};

} // namespace vs::project_resave
