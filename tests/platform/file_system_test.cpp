// Files and folders, and letter case of names.
#include <gtest/gtest.h>

#include <chrono>

#include "platform/system.h"
#include "platform/text.h"
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

TEST_F(file_system, a_copy_replaces_a_file_only_on_request_or_changes_nothing) {
    folder.write(u"source.txt", "new");
    folder.write(u"there.txt", "old");
    folder.write(u"sub\\x.txt");
    const auto before = tree();
    const std::tuple<wide_view, wide_view, bool, std::optional<failure>> cases[] = {
        {u"source.txt", u"there.txt", false, failure::taken},
        {u"source.txt", u"THERE.TXT", false, failure::taken},
        {u"source.txt", u"sub", false, failure::taken},
        {u"source.txt", u"sub", true, {}},
        {u"lost.txt", u"copy.txt", false, failure::missing},
        {u"lost.txt", u"there.txt", true, failure::missing},
        {u"sub", u"copy.txt", false, {}},
        {u"source.txt", u"none\\copy.txt", false, failure::missing},
        {u"source.txt", u"source.txt", false, failure::taken},
        {u"source.txt", u"SOURCE.txt", true, {}},
    };
    for (const auto& [source, target, replace, kind] : cases) {
        SCOPED_TRACE(to_utf8(source) + " to " + to_utf8(target));
        const outcome copied = files.copy_file(folder.path(source), folder.path(target), replace);
        EXPECT_FALSE(copied);
        EXPECT_FALSE(copied.text().empty());
        EXPECT_TRUE(!kind || copied.is(*kind)) << to_utf8(copied.text());
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

TEST_F(file_system, folders_are_made_level_by_level_and_removed_when_empty) {
    const std::pair<wide_view, bool> made[] = {
        {u"a\\b", false}, {u"a", true}, {u"A", false}, {u"a\\b", true}};
    for (const auto& [name, is_made] : made) EXPECT_EQ(bool(files.create_folder(folder.path(name))), is_made);
    EXPECT_FALSE(files.remove_folder(folder.path(u"a")) || files.delete_file(folder.path(u"a")));
    folder.write(u"a\\b\\x");
    folder.write(u"a\\c");
    EXPECT_EQ(tree(), (std::vector<wide_string>{u"a\\", u"a\\b\\", u"a\\b\\x", u"a\\c"}));
    for (const wide_view file : {u"a\\b\\X", u"a\\c"}) EXPECT_TRUE(files.delete_file(folder.path(file)));
    for (const wide_view empty : {u"A\\B", u"A"}) EXPECT_TRUE(files.remove_folder(folder.path(empty)));
    uint64_t bytes = 0;
    EXPECT_TRUE(files.free_space(folder.path(), bytes) && bytes > 0);
    EXPECT_TRUE(files.free_space(folder.path(u"a"), bytes).is(failure::missing));
}

TEST_F(file_system, each_failing_call_says_why) {
    const wide_string there = folder.write(u"there.txt", "old"), lost = folder.path(u"lost.txt");
    folder.write(u"sub\\x.txt");
    const wide_string sub = folder.path(u"sub"), odd = folder.path(wide_string(u"a\0b", 3));
    std::vector<folder_entry> entries;
    std::unique_ptr<file> opened;
    const auto read = [&](const wide_string& path) {
        return files.open(path, access::read, disposition::open_existing, opened);
    };
    // An error without a kind is compared by its native code, which differs between systems.
    const std::tuple<const char*, outcome, std::optional<failure>> cases[] = {
        {"read a lost file", read(lost), failure::missing},
        {"read below a file", read(there + u"\\x"), failure::missing},
        {"read a folder", read(sub), {}},
        {"write where no folder is",
         files.open(lost + u"\\x", access::read_write, disposition::create_always, opened), failure::missing},
        {"delete a lost file", files.delete_file(lost), failure::missing},
        {"delete a folder", files.delete_file(sub), {}},
        {"create a folder again", files.create_folder(sub), failure::taken},
        {"create below nothing", files.create_folder(lost + u"\\x"), failure::missing},
        {"remove a full folder", files.remove_folder(sub), {}},
        {"list a lost folder", files.list(lost, entries), failure::missing},
        {"list a file", files.list(there, entries), {}},
        {"rename a lost file", files.rename_over(lost, there), failure::missing},
        {"an unknown drive", files.create_folder(u"Q:\\x"), {}},
        {"a zero character", files.create_folder(odd), {}},
    };
    for (const auto& [name, result, kind] : cases) {
        EXPECT_FALSE(result) << name;
        EXPECT_TRUE(!kind || result.is(*kind)) << name << ": " << to_utf8(result.text());
        const wide_string words = result.text();
        EXPECT_TRUE(!words.empty() && wide_view(u". \r\n").find(words.back()) == wide_view::npos) << name;
    }
    EXPECT_TRUE(outcome().text().empty() && outcome().code() == 0);
    char buffer[8];
    ASSERT_TRUE(read(there));
    EXPECT_TRUE(opened->read_whole(buffer, 3));
    EXPECT_FALSE(opened->read_whole(buffer, 1)) << "at the end of the file";
    EXPECT_FALSE(opened->write(buffer, 1)) << "to a file that is open to be read";
}

TEST(text, letter_case_is_ignored_in_every_script_that_has_it) {
    const std::tuple<wide_view, wide_view, int> cases[] = {
        {u"", u"", 0},
        {u"C:\\Data\\ROADS.shp", u"c:\\data\\roads.SHP", 0},
        {u"Разрез Ёлка", u"рАЗРЕЗ ёЛКА", 0},
        {u"ΔÉLTA Ž Ø Ґ Є", u"δélta ž ø ґ є", 0},
        {u"\xD801\xDC00\xDC00\xD800", u"\xD801\xDC00\xDC00\xD800", 0},
        {u"е", u"ё", -1},
        {u"a", u"ab", -1},
        {u"b", u"AB", 1},
        {u"a-b", u"ab", -1},
    };
    for (const auto& [a, b, order] : cases) {
        EXPECT_EQ(compare_no_case(a, b), order) << to_utf8(a) << " " << to_utf8(b);
        EXPECT_EQ(compare_no_case(b, a), -order);
        EXPECT_EQ(folded(a) == folded(b), order == 0);
    }
    wide_string text = u"C:\\ДАННЫЕ\\Ärea.TIF";
    lower_in_place(text);
    EXPECT_EQ(text, u"c:\\данные\\ärea.tif");
}

TEST(text, code_pages_turn_text_into_bytes_and_back) {
    const std::tuple<unsigned, wide_view, std::string_view> cases[] = {
        {65001, u"Aя€\xD83D\xDE00", "A\xD1\x8F\xE2\x82\xAC\xF0\x9F\x98\x80"},
        {65001, wide_view(u"a\0b", 3), std::string_view("a\0b", 3)},
        {1251, u"Привет Ёж\x98", "\xCF\xF0\xE8\xE2\xE5\xF2 \xA8\xE6\x98"},
        {1252, u"Überéœ", "\xDC\x62\x65\x72\xE9\x9C"},
        {866, u"Привет", "\x8F\xE0\xA8\xA2\xA5\xE2"},
    };
    for (const auto& [page, text, bytes] : cases) {
        EXPECT_EQ(to_bytes(text, page), bytes) << page;
        EXPECT_EQ(from_bytes(bytes, page), text) << page;
    }
    EXPECT_EQ(to_bytes(u"中a", 1251), "?a");
    EXPECT_EQ(from_bytes("a", 4711), u"");
}

TEST(text, broken_text_costs_only_the_broken_part) {
    for (const wide_view half : {u"\xD800", u"\xDC00"})
        EXPECT_EQ(to_utf8(u"a" + wide_string(half) + u"я"), "a\xEF\xBF\xBD\xD1\x8F");
    const std::pair<std::string_view, size_t> cases[] = {
        {"\xFF", 1},     {"\xD1", 1},         {"\xE2\x82", 1},         {"\xF0\x9F\x98", 1},
        {"\xC0\x80", 2}, {"\xED\xA0\x80", 3}, {"\xF4\x90\x80\x80", 4}, {"\xE0\x9F\xBF", 3},
    };
    for (const auto& [broken, marks] : cases) {
        const std::string bytes = "a\xEF\xBF\xBD" + std::string(broken) + "z";
        EXPECT_EQ(from_utf8(bytes), u"a\xFFFD" + wide_string(marks, u'\xFFFD') + u"z");
        EXPECT_EQ(valid_utf8_length(bytes), 4U);
        EXPECT_EQ(valid_utf8_length("a\xEF\xBF\xBD"), 4U);
    }
}

} // namespace
} // namespace vs::project_resave::platform
