#include "platform/path_text.h"

#include <gtest/gtest.h>

#include <random>

#include "operations/run/placed_files.h"
#include "platform/text.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {

namespace {

struct row {
    const char* rule;
    wide_string actual;
    wide_string expected;
};

void expect_all(const std::vector<row>& rows) {
    for (const row& row : rows)
        EXPECT_EQ(platform::to_utf8(row.actual), platform::to_utf8(row.expected)) << row.rule;
}

} // namespace

TEST(paths, a_name_falls_into_head_stem_and_extension) {
    expect_all({
        {"head", path_head(u"C:\\a/b.shp") + path_head(u"b.shp"), u"C:\\a/"},
        {"last dot", path_stem(u"x.y\\a.b.shp") + u"|" + path_extension(u"x.y\\a.b.shp"), u"a.b|.shp"},
        {"dot of a folder", path_stem(u"C:\\x.y\\a") + u"|" + path_extension(u"C:\\x.y\\a"), u"a|"},
        {"only dot in front", path_stem(u"C:\\.tif") + u"|" + path_extension(u"C:\\.tif"), u".tif|"},
        {"stops at a separator", path_replace_extension(u"C:\\x.y\\b", u".pj4"), u"C:\\x.y\\b.pj4"},
        {"a dot behind a separator goes", path_replace_extension(u"C:\\.tif", u".pj4"), u"C:\\.pj4"},
        {"a dot at the very start stays", path_replace_extension(u".tif", u".pj4"), u".tif.pj4"},
        {"only a drive's colon is valid", valid_path(u"C:\\a:b\\<c>|\"?*.shp"), u"C:\\a_b\\_c_____.shp"},
        {"held below", held_below(u"..\\a/.. \\..._sn") + held_below(u"..") + held_below(u".\\a..b"),
         u"__\\a/.. \\..._sn__.\\a..b"},
    });
}

TEST(paths, a_place_has_one_normal_form) {
    expect_all({
        {"pieces", path_normalise(u"C:/a\\\\.\\b\\..\\c\\"), u"C:\\a\\c"},
        {"parents at the top stay", path_normalise(u"..\\a\\..\\..\\b"), u"..\\..\\b"},
        {"above a drive", path_normalise(u"C:\\.."), u"C:\\.."},
        {"behind a bare drive", path_normalise(u"C:foo\\bar") + path_normalise(u"C:\\"), u"C:\\barC:"},
        {"join", path_join(u"C:\\a", u"b") + path_join(u"|a/", u"b"), u"C:\\a\\b|a/b"},
        {"join throws the left part away", path_join(u"C:\\a", u"a:b"), u"a:b"},
        {"resolve from a file", path_resolve(u"C:\\a\\b._vp", u"..\\c\\d.shp"), u"C:\\c\\d.shp"},
    });
    EXPECT_TRUE(path_same(u"C:\\Карты\\a.shp", u"c:/x/../КАРТЫ//A.SHP"));
}

TEST(paths, the_way_from_a_file_to_another) {
    const wide_string base = u"C:\\prj\\area._vp";
    expect_all({
        {"below", path_relative(base, u"c:\\PRJ\\maps\\a.shp"), u"maps\\a.shp"},
        {"beside", path_relative(base, u"C:\\data\\a.shp"), u"..\\data\\a.shp"},
        {"the folder itself", path_relative(base, u"C:\\prj"), u""},
        {"a bare drive is no folder", path_relative(u"C:", u"C:\\prj\\a.shp"), u"C:\\prj\\a.shp"},
        {"other drive", path_relative(base, u"D:/gis/../a.shp"), u"D:\\a.shp"},
        {"share seen from a drive", path_relative(base, u"\\\\srv\\s\\a"), u"..\\srv\\s\\a"},
    });
}

// The run must not place a file twice because it is spelled another way, nor take two files for one.
TEST(placed_files, answer_as_a_scan_from_the_oldest_entry) {
    std::mt19937 random(7);
    const auto pick = [&](const std::vector<wide_string>& from) { return from[random() % from.size()]; };
    const auto spelling = [&] {
        wide_string path = pick({u"", u"C:", u"c:", u"\\", u"//"});
        for (auto n = random() % 5; n > 0; --n)
            path += pick({u"\\", u"/", u"\\\\"}) + pick({u"a", u"A", u"б", u"Б", u"..", u".", u"a b"});
        return path;
    };
    struct disk : forwarding_system {
        bool same_file(const wide_string& a, const wide_string& b) override {
            return ignores_case ? path_same(a, b) : path_normalise(a) == path_normalise(b);
        }
        bool ignores_case = false;
    } disk;
    const platform::system_override in_force(disk);
    for (const bool ignores_case : {false, true}) {
        disk.ignores_case = ignores_case;
        placed_files placed;
        for (int i = 0; i < 3000; ++i) {
            const wide_string asked = spelling();
            const placed_file* scanned = nullptr;
            for (const placed_file& entry : placed)
                if (!scanned && disk.same_file(entry.old_path, asked)) scanned = &entry;
            ASSERT_EQ(placed.find(asked), scanned) << platform::to_utf8(asked);
            if (placed.size() < 150) placed.add(spelling(), u"new");
        }
    }
}

} // namespace vs::project_resave
