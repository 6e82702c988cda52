// The drives C:, D: and N: for a test, initially empty. Only one object can exist at a time.
//
// On Linux they are folders inside a temporary one, mapped as drives of the process. On Windows they are real
// drives, on disks created for tests (see tools/run_under_wine); the files of the test are removed at the
// end.
#pragma once

#include <filesystem>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

class test_drives {
public:
    test_drives();
    ~test_drives();

    // Returns the native path of a drive's root.
    std::filesystem::path root(char letter) const;

    // True for an entry that the operating system has in the root of its own disk.
    static bool is_of_the_system(const std::filesystem::path& entry);

private:
    temporary_folder folder_;
};

} // namespace vs::project_resave
