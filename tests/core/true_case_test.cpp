// The disk's spelling of a path.
#include "core/true_case.h"

#include <gtest/gtest.h>

#include "tests/support/forwarding_system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {
namespace {

TEST(true_case, a_path_is_spelled_as_the_folders_list_it) {
    const temporary_folder disk;
    disk.write(u"Data\\Maps\\Roads.SHP");
    const wide_string root = disk.path() + u"\\", file = root + u"Data\\Maps\\Roads.SHP";
    const auto other_drive_case = [](wide_string path) {
        path[0] ^= 0x20;
        return path;
    };
    const struct {
        const char* what;
        wide_string path, spelled; // nothing: not judged
    } rows[] = {
        {"as it is", file, file},
        {"a file", root + u"Data\\Maps\\roads.shp", file},
        {"folders", root + u"DATA\\maps\\Roads.SHP", file},
        {"a folder", root + u"data\\maps", root + u"Data\\Maps"},
        {"slashes", root + u"Data/Maps/Roads.SHP", file},
        {"separators in a row", root + u"Data\\\\Maps\\/roads.shp", file},
        {"a way back", root + u"data\\..\\data\\MAPS\\Roads.SHP", root + u"Data\\..\\Data\\Maps\\Roads.SHP"},
        {"the drive's own case", other_drive_case(root + u"Data\\maps"),
         other_drive_case(root + u"Data\\Maps")},
        {"missing", root + u"Data\\none.shp", u""},
        {"relative", u"Data\\Maps\\roads.shp", u""},
        {"empty", u"", u""},
        {"a share", u"\\\\server\\share\\roads.shp", u""},
        {"no drive", u"\\", u""},
        {"no letter", u"1:\\roads.shp", u""},
    };
    for (const auto& row : rows) {
        wide_string spelled = u"older";
        EXPECT_EQ(!row.spelled.empty(), true_case_path(row.path, spelled)) << row.what;
        EXPECT_EQ(row.spelled, spelled) << row.what;
    }
}

TEST(true_case, what_no_entry_matches_stays_and_the_rest_is_still_spelled) {
    struct unlisted : forwarding_system {
        bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
            return name != u"data" && forwarding_system::true_name(folder, name, spelling);
        }
    };
    const temporary_folder disk;
    disk.write(u"Data\\Roads.shp");
    unlisted faults;
    const platform::system_override in_force(faults);
    wide_string spelled;
    EXPECT_TRUE(true_case_path(disk.path(u"data\\roads.shp"), spelled));
    EXPECT_EQ(disk.path(u"data\\Roads.shp"), spelled);
}

} // namespace
} // namespace vs::project_resave
