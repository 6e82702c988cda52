// What this system does and no other: names and files that are peculiar to it.
#include <windows.h>

#include <gtest/gtest.h>

#include "platform/system.h"
#include "platform/volumes.h"
#include "platform/windows/paths.h"
#include "tests/support/test_drives.h"

namespace vs::project_resave::platform {
namespace {

TEST(windows, paths_longer_than_the_old_limit_are_files_like_others) {
    const temporary_folder folder;
    system& files = current_system();
    wide_string path = folder.path();
    for (int level = 0; level < 8; ++level) {
        path += u"\\" + wide_string(50, u'a');
        ASSERT_TRUE(files.create_folder(path)) << level;
    }
    ASSERT_GT(path.size(), 400U);
    const wide_string source = folder.write(u"x.txt", "text");
    EXPECT_TRUE(files.copy_file(source, path + u"\\Copy.txt", false));
    EXPECT_EQ(files.file_size(path + u"\\copy.TXT"), 4U);
    EXPECT_EQ(list_tree(files, folder.path()).size(), 10U);
    EXPECT_TRUE(files.delete_file(path + u"/copy.txt"));
    for (; path.size() > folder.path().size(); path.resize(path.rfind(u'\\')))
        EXPECT_TRUE(files.remove_folder(path));
}

TEST(windows, a_locked_file_is_told_from_a_lost_one_and_stays_where_it_is) {
    const temporary_folder folder;
    const wide_string path = folder.write(u"log.txt", "x");
    const wide_string other = folder.write(u"other.txt", "y");
    system& files = current_system();
    std::unique_ptr<file> opened;
    {
        const file_handle held(
            CreateFileW(wide(path.c_str()), GENERIC_READ, 0, nullptr, OPEN_EXISTING, 0, nullptr));
        ASSERT_TRUE(bool(held));
        for (const disposition how : {disposition::open_existing, disposition::create_always})
            EXPECT_EQ(files.open(path, access::read_write, how, opened), open_result::sharing_violation);
        EXPECT_FALSE(files.copy_file(path, folder.path(u"copy.txt"), false));
        EXPECT_FALSE(files.copy_file(other, path, true));
        EXPECT_FALSE(files.delete_file(path));
        EXPECT_FALSE(files.rename_over(other, path));
        EXPECT_EQ(files.list(folder.path()).size(), 2U);
    }
    EXPECT_EQ(folder.read(u"log.txt"), "x");
    EXPECT_EQ(files.open(path, access::read_write, disposition::open_existing, opened), open_result::opened);
}

TEST(windows, drives_are_the_systems_and_paths_become_whole) {
    const test_drives disks;
    std::string message;
    EXPECT_FALSE(add_drive("E=C:\\windows", message));
    EXPECT_FALSE(message.empty());
    EXPECT_TRUE(SetCurrentDirectoryW(L"N:\\"));
    EXPECT_EQ(drive_path("Карты\\..\\a._vp"), u"N:\\a._vp");
    EXPECT_EQ(drive_path("C:/any/x"), u"C:\\any\\x");
    system& files = current_system();
    EXPECT_TRUE(files.create_folder(u"D:\\Карты"));
    EXPECT_TRUE(files.create_folder(u"N:\\Карты"));
    EXPECT_FALSE(files.same_file(u"D:\\Карты", u"N:\\Карты"));
    EXPECT_TRUE(files.same_file(u"n:\\КАРТЫ", u"N:\\Карты"));
    EXPECT_EQ(files.kind_of(u"Q:\\"), entry_kind::none);
    EXPECT_TRUE(SetCurrentDirectoryW(L"C:\\"));
}

} // namespace
} // namespace vs::project_resave::platform
