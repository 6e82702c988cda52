#include "core/path_files.h"

#include <gtest/gtest.h>

#include "core/paths.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

TEST(path_files, folders_are_created_level_by_level_or_not_at_all) {
    const temporary_folder disk;
    disk.write(u"file");
    struct {
        wide_string path;
        bool expected;
    } const rows[] = {
        {disk.path(u"a\\b/c\\"), true}, {disk.path(u"a\\b"), true},
        {disk.path(u"A\\B\\d"), true},  {disk.path(u"file"), false},
        {disk.path(u"file\\x"), false}, {u"Q:\\nowhere\\x", false},
        {u"\\\\no\\share\\x", false},   {u"", false},
    };
    for (const auto& row : rows) EXPECT_EQ(create_folders(row.path), row.expected);
    EXPECT_TRUE(std::filesystem::is_directory(disk.native() / "a/b/d")) << "a second spelling of a folder";
    EXPECT_TRUE(path_exists(disk.path(u"a\\b\\c")) && path_exists(disk.path(u"FILE")));
    EXPECT_FALSE(path_exists(disk.path(u"x")));
}

TEST(path_files, a_taken_name_gets_a_number_on_its_first_stem) {
    const temporary_folder disk;
    EXPECT_EQ(unique_path(disk.path(u"Area.1")), disk.path(u"Area.1"));
    disk.write(u"Area.1\\x");
    disk.write(u"Area_1.1");
    EXPECT_EQ(unique_path(disk.path(u"Area.1")), disk.path(u"Area_2.1"));
}

TEST(path_files, erasing_a_tree_spares_what_its_links_lead_to) {
    const temporary_folder disk;
    disk.write(u"made\\a\\b.shp");
    disk.write(u"made\\c:d"); // a colon is a letter to some file systems
    disk.write(u"kept\\file");
    std::error_code unsupported;
    std::filesystem::create_directory_symlink(disk.native() / "kept", disk.native() / "made/a/link",
                                              unsupported);
    EXPECT_TRUE(remove_tree(disk.path(u"made")));
    EXPECT_FALSE(std::filesystem::exists(disk.native() / "made"));
    EXPECT_TRUE(std::filesystem::exists(disk.native() / "kept/file"));
    EXPECT_TRUE(remove_tree(disk.path(u"kept\\file")));
    EXPECT_FALSE(remove_tree(disk.path(u"kept\\file")));
}

} // namespace vs::project_resave
