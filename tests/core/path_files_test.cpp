#include "core/path_files.h"

#include <gtest/gtest.h>

#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

TEST(path_files, folders_are_created_level_by_level_or_not_at_all) {
    const temporary_folder disk;
    disk.write(u"file");
    for (const wide_view made : {u"a\\b/c\\", u"a\\b", u"A\\B\\d"})
        EXPECT_TRUE(create_folders(disk.path(made)));
    EXPECT_TRUE(std::filesystem::is_directory(disk.native() / "a/b/d")) << "in the folders as spelled first";
    for (const wide_string& refused :
         {disk.path(u"file"), disk.path(u"file\\x"), wide_string(u"Q:\\nowhere\\x"),
          wide_string(u"\\\\no\\share\\x"), wide_string()})
        EXPECT_FALSE(create_folders(refused));
}

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
