// Behaviour that only Windows has: special names and files.
#include <windows.h>

#include <gtest/gtest.h>

#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "platform/windows/paths.h"
#include "tests/support/test_drives.h"

namespace vs::project_resave::platform {
namespace {

// Each name alone and inside a folder.
TEST(windows, devices_and_streams_are_not_files_and_never_copy_targets) {
    const temporary_folder folder;
    const wide_string source = folder.write(u"x.txt", "text");
    system& files = current_system();
    for (const wide_string name :
         {u"NUL", u"nul.txt", u"COM1", u"com1.shp", u"LPT9", u"AUX", u"aux.shp", u"PRN", u"CON.", u"con ",
          u"CONIN$", u"CONOUT$", u"nul:", u"x.txt:stream"}) {
        for (const wide_string& path : {name, folder.path(name)}) {
            SCOPED_TRACE(to_utf8(path));
            std::unique_ptr<file> opened;
            EXPECT_EQ(files.kind_of(path), entry_kind::none);
            const outcome created = files.open(path, access::read_write, disposition::create_always, opened);
            EXPECT_TRUE(!created && created.code() == 0) << "the reason is our own";
            for (const bool replaces : {false, true}) EXPECT_FALSE(files.copy_file(source, path, replaces));
            EXPECT_FALSE(files.create_folder(path) || files.delete_file(path));
        }
    }
    EXPECT_EQ(entries_or_none(files, folder.path()).size(), 1U);
    EXPECT_EQ(folder.read(u"x.txt"), "text");
}

// The prefix lifts the limit of 260 characters and requires absolute paths without "/" and "..".
TEST(windows, long_paths_are_made_whole_and_get_the_prefix_that_calls_need) {
    const test_drives disks;
    EXPECT_TRUE(SetCurrentDirectoryW(L"N:\\"));
    const wide_string name(100, u'n'), long_name(260, u'n'), top = u"C:\\" + name, prefix = u"\\\\?\\";
    const wide_string limit = top + wide_string(136, u'm'); // of 239 characters
    const std::pair<wide_string, wide_string> table[] = {
        {u"C:\\a\\..\\b/c.shp", u"C:\\a\\..\\b/c.shp"},
        {limit, limit},
        {limit + u"m", prefix + limit + u"m"},
        {top + u"/a/../" + long_name, prefix + top + u"\\" + long_name},
        {u"\\\\server\\share\\" + long_name, prefix + u"UNC\\server\\share\\" + long_name},
        {u"//server/share/" + long_name, prefix + u"UNC\\server\\share\\" + long_name},
        {long_name, prefix + u"N:\\" + long_name},
        {wide_string(238, u'r'), prefix + u"N:\\" + wide_string(238, u'r')},
        {top + u"\\" + long_name + u"\\..\\..\\NUL", u""},
        {wide_string(u"C:\\a\0b", 6), u""},
    };
    for (const auto& [path, expected] : table) EXPECT_EQ(to_utf8(system_path(path)), to_utf8(expected));
    EXPECT_TRUE(SetCurrentDirectoryW(L"C:\\"));
}

TEST(windows, a_locked_file_is_not_a_lost_one_and_is_not_moved) {
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
            EXPECT_TRUE(files.open(path, access::read_write, how, opened).is(failure::in_use));
        for (const outcome& result :
             {files.copy_file(path, folder.path(u"copy.txt"), false), files.copy_file(other, path, true),
              files.delete_file(path), files.rename_over(other, path)})
            EXPECT_TRUE(!result && result.code() != 0);
        EXPECT_EQ(entries_or_none(files, folder.path()).size(), 2U);
    }
    EXPECT_FALSE(outcome(failure::in_use).text().starts_with(u"error ")) << "the system has words for it";
    EXPECT_EQ(folder.read(u"log.txt"), "x");
    EXPECT_TRUE(files.open(path, access::read_write, disposition::open_existing, opened));
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
