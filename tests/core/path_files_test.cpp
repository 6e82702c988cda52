#include "core/path_files.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

TEST(path_files, erasing_a_tree_spares_what_its_links_lead_to) {
    const temporary_folder disk;
    disk.write(u"made\\a\\b.shp");
    disk.write(u"kept\\file");
    std::error_code unsupported;
    std::filesystem::create_directory_symlink(disk.native() / "kept", disk.native() / "made/a/link",
                                              unsupported);
    EXPECT_TRUE(remove_tree(disk.path(u"made")));
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "made"));
    EXPECT_TRUE(remove_tree(disk.path(u"kept\\file"))) << "it must have survived";
    EXPECT_FALSE(remove_tree(disk.path(u"kept\\file")));
}

} // namespace vs::project_resave
