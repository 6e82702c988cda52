// Linux only: there the layer reads listings to look names up, and the system tells of each reading.
// How often the check of letter case reads a folder.
#include "platform/system.h"
#include "tests/support/host_fixture.h"
#include "tests/support/posix/folder_watch.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using listings = host_fixture;

TEST_F(listings, the_case_check_of_a_large_folder_reads_its_listing_once) {
    platform::system& disk = platform::current_system();
    const wide_string well = write(c + u"w.wel");
    ASSERT_TRUE(disk.create_folder(c + u"Wells"));
    const folder_watch listing(native("c") / "Wells");
    project_builder built;
    built.scene_2d(u"S");
    for (uint32_t index = 0; index < 300; ++index) {
        ASSERT_TRUE(disk.copy_file(well, c + u"Wells\\w" + decimal(index) + u".wel", false));
        const wide_string stored =
            c + (index % 2 == 0 ? u"Wells\\w" : u"WELLS\\W") + decimal(index) + u".wel";
        built.layer("plugin_lr_2d_well_hole_2d_3", u"W", stored);
    }
    built.save(source);
    load();
    EXPECT_TRUE(context->check_path_case(n + u"out\\report.txt"));
    EXPECT_TRUE(context->case_differs);
    const std::string report = read(n + u"out\\report.txt");
    EXPECT_EQ(3 * 150, std::ranges::count(report, '\n'));
    const int readings = listing.readings();
    EXPECT_LE(1, readings);
    EXPECT_GE(2, readings) << "once more while it is being filled";
}

} // namespace
} // namespace vs::project_resave
