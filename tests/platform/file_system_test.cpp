#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

#include "platform/system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave::platform {
namespace {

namespace fs = std::filesystem;

class file_system : public testing::Test {
protected:
    std::vector<wide_string> tree() {
        std::vector<wide_string> names;
        for (const tree_entry& entry : list_tree(files, folder.path()))
            names.push_back(entry.path.substr(folder.path().size() + 1) + (entry.is_folder ? u"\\" : u""));
        return names;
    }

    temporary_folder folder;
    system& files = current_system();
};

TEST_F(file_system, copy_keeps_bytes_time_and_permissions) {
    for (const size_t size : {size_t{0}, size_t{2} * 1024 * 1024 + 3}) {
        std::string bytes(size, '\0');
        for (size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>(i * 31 % 251);
        const wide_string source = folder.write(u"source.bin", bytes);
        const fs::path native = native_path(source);
        fs::last_write_time(native, fs::last_write_time(native) - std::chrono::hours(1000));
        fs::permissions(native, fs::perms::owner_write, fs::perm_options::remove);

        ASSERT_TRUE(files.copy_file(source, folder.path(u"copy.bin"), false)) << size;
        const fs::path copy = native_path(folder.path(u"copy.bin"));
        EXPECT_TRUE(folder.read(u"copy.bin") == bytes) << size;
        EXPECT_EQ(files.file_size(folder.path(u"copy.bin")), size);
        EXPECT_EQ(fs::last_write_time(copy), fs::last_write_time(native));
        EXPECT_EQ(fs::status(copy).permissions(), fs::status(native).permissions());
        EXPECT_TRUE(files.delete_file(folder.path(u"copy.bin"))) << "though it is read-only";
        fs::permissions(native, fs::perms::owner_write, fs::perm_options::add);
    }
}

TEST_F(file_system,
       a_copy_that_cannot_be_made_changes_nothing_and_a_file_takes_anothers_place_when_it_is_told_to) {
    folder.write(u"source.txt", "new");
    folder.write(u"there.txt", "old");
    folder.write(u"sub\\x.txt");
    const auto before = tree();
    const std::tuple<wide_view, wide_view, bool> cases[] = {
        {u"source.txt", u"there.txt", false},  {u"source.txt", u"THERE.TXT", false},
        {u"source.txt", u"sub", false},        {u"source.txt", u"sub", true},
        {u"lost.txt", u"copy.txt", false},     {u"lost.txt", u"there.txt", true},
        {u"sub", u"copy.txt", false},          {u"source.txt", u"none\\copy.txt", false},
        {u"source.txt", u"source.txt", false}, {u"source.txt", u"SOURCE.txt", true},
    };
    for (const auto& [source, target, replace] : cases) {
        EXPECT_FALSE(files.copy_file(folder.path(source), folder.path(target), replace));
        EXPECT_EQ(tree(), before);
    }
    EXPECT_EQ(folder.read(u"there.txt"), "old");
    EXPECT_EQ(folder.read(u"source.txt"), "new");
    EXPECT_TRUE(files.copy_file(folder.path(u"source.txt"), folder.path(u"There.TXT"), true));
    EXPECT_EQ(folder.read(u"there.txt"), "new");
    EXPECT_EQ(tree(), before);
    folder.write(u"x.tmp", "newer");
    EXPECT_TRUE(files.rename_over(folder.path(u"x.tmp"), folder.path(u"THERE.txt")));
    EXPECT_FALSE(files.rename_over(folder.path(u"x.tmp"), folder.path(u"there.txt")));
    EXPECT_EQ(folder.read(u"there.txt"), "newer");
    EXPECT_EQ(tree().size(), before.size());
    EXPECT_TRUE(files.delete_file(folder.path(u"There.TXT")));
    EXPECT_FALSE(files.delete_file(folder.path(u"There.TXT")));
}

TEST_F(file_system, kinds_and_names_are_found_in_any_letter_case) {
    folder.write(u"Данные\\Река.SHP", "12345");
    const std::tuple<wide_view, entry_kind, uint64_t> cases[] = {
        {u"ДАННЫЕ\\рЕКА.shp", entry_kind::file, 5},
        {u"x\\..\\данные\\река.shp", entry_kind::file, 5},
        {u"данные", entry_kind::folder, 0},
        {u"данные\\река.shx", entry_kind::none, 0},
        {u"данные\\река.shp\\x", entry_kind::none, 0},
        {wide_view(u"данные\0x", 8), entry_kind::none, 0}};
    for (const auto& [path, kind, size] : cases) {
        EXPECT_EQ(files.kind_of(folder.path(path)), kind) << fs::path(path);
        EXPECT_EQ(files.file_size(folder.path(path)), size) << fs::path(path);
    }
    for (const wide_string& none :
         {wide_string(), wide_string(u"\\\\no-such-server\\share\\x"), folder.path(wide_string(70000, u'x'))})
        EXPECT_EQ(files.kind_of(none), entry_kind::none);

    wide_string spelling = u"as it was";
    EXPECT_FALSE(files.true_name(folder.path(u"данные"), u"река.shx", spelling));
    EXPECT_EQ(spelling, u"as it was");
    EXPECT_TRUE(files.true_name(folder.path(u"ДАННЫЕ"), u"река.shp", spelling));
    EXPECT_EQ(spelling, u"Река.SHP");
    EXPECT_TRUE(files.same_file(folder.path(u"ДАННЫЕ\\река.shp"), folder.path(u"Данные\\Река.SHP")));
    EXPECT_FALSE(files.same_file(folder.path(u"Данные"), folder.path(u"Данные\\Река.SHP")));
}

TEST_F(file_system, folders_are_made_one_level_at_a_time_listed_before_their_content_and_removed_when_empty) {
    const std::pair<wide_view, bool> made[] = {
        {u"a\\b", false}, {u"a", true}, {u"A", false}, {u"a\\b", true}};
    for (const auto& [name, is_made] : made) EXPECT_EQ(files.create_folder(folder.path(name)), is_made);
    EXPECT_FALSE(files.remove_folder(folder.path(u"a")) || files.delete_file(folder.path(u"a")));
    folder.write(u"a\\b\\x");
    folder.write(u"a\\c");
    EXPECT_EQ(tree(), (std::vector<wide_string>{u"a\\", u"a\\b\\", u"a\\b\\x", u"a\\c"}));
    for (const wide_view file : {u"a\\b\\X", u"a\\c"}) EXPECT_TRUE(files.delete_file(folder.path(file)));
    for (const wide_view empty : {u"A\\B", u"A"}) EXPECT_TRUE(files.remove_folder(folder.path(empty)));
    EXPECT_GT(files.free_space(folder.path()), 0U);
    EXPECT_EQ(files.free_space(folder.path(u"a")), std::nullopt);
}

} // namespace
} // namespace vs::project_resave::platform
