// Paths as texts, and the places of copies.
#include <gtest/gtest.h>

#include <random>

#include "logs/log_file.h"
#include "operations/run/path_files.h"
#include "operations/run/path_placement.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_report.h"
#include "platform/forwarding_system.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "tests/support/temporary_folder.h"

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
        {"from a longer spelling", path_relative(u"C:\\x\\..\\prj\\.\\area._vp", u"C:\\prj\\a\\b.shp"),
         u"a\\b.shp"},
        {"the folder itself", path_relative(base, u"C:\\prj"), u""},
        {"a bare drive is no folder", path_relative(u"C:", u"C:\\prj\\a.shp"), u"C:\\prj\\a.shp"},
        {"other drive", path_relative(base, u"D:/gis/../a.shp"), u"D:\\a.shp"},
        {"share seen from a drive", path_relative(base, u"\\\\srv\\s\\a"), u"..\\srv\\s\\a"},
    });
}

// The run must not place a file twice because of its spelling, nor take two files for one.
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

// The run of a project C:\prj\area._vp; neither C: nor N: need exist.
struct run {
    explicit run(uint32_t variant, const wide_string& output = u"N:\\out\\new._vp") {
        options.structure_variant = static_cast<project_resave::structure>(variant);
        placement.set_source(u"C:\\prj\\area._vp");
        placement.set_output(output);
        placement.type_folder = u"shp";
    }
    // `expected` is relative to N:\out unless it has a drive.
    void expect_placed(wide_view source, wide_view expected) {
        EXPECT_EQ(platform::to_utf8(placement.new_path(wide_string(source))),
                  platform::to_utf8(path_join(u"N:\\out", expected)))
            << options.structure_variant << " " << platform::to_utf8(source);
    }

    resave_options options{nullptr};
    log_file log{nullptr};
    run_report report;
    path_placement placement{nullptr, &log, &report, &options};
};

const wide_string roads = u"C:\\prj\\maps\\roads.shp", well = u"C:\\data\\wells\\w1.shp";
const wide_string lake = u"D:\\gis\\base\\lake.shp", grid = u"C:\\prj\\grids\\m.pgrid";

TEST(path_placement, each_structure_puts_a_file_where_it_promises) {
    const struct {
        uint32_t variant;
        wide_string source, expected;
        wide_string type_folder = u"shp";
    } rows[] = {
        {0, grid, u"grid\\m\\m.pgrid", u"grid"},
        {1, u"C:\\PRJ\\a.shp", u"a.shp"},
        {1, u"D:\\a\\..\\b.shp", u"D:\\b.shp"}, // not in normal form, so its drive is not cut off
        {1, u"maps\\a.shp", u"s\\a.shp"},
        {1, u"\\\\srv\\share\\a.shp", u"srv\\share\\a.shp"},
        {2, u"D:\\m.pgrid", u"grid\\m\\m.pgrid", u"grid"},
    };
    for (const auto& row : rows) {
        run run(row.variant);
        run.placement.type_folder = row.type_folder;
        run.expect_placed(row.source, row.expected);
    }
}

TEST(path_placement, a_common_top_folder_is_kept_under_the_new_project) {
    const struct {
        std::vector<wide_string> collected;
        std::vector<std::pair<wide_string, wide_string>> placed;
    } rows[] = {
        {{roads, well, lake, grid},
         {{roads, u"prj\\maps\\roads.shp"},
          {well, u"data\\wells\\w1.shp"},
          {grid, u"prj\\grids\\m.pgrid"},
          {lake, u"base\\lake.shp"},
          {u"E:\\q\\r\\s.shp", u"q\\r\\s.shp"},
          {u"\\\\server\\share\\file", u"server\\share\\file"}}},
        {{roads, grid}, {{roads, u"prj\\maps\\roads.shp"}, {grid, u"prj\\grids\\m.pgrid"}}},
        // Letter case matters among the collected paths, also that of the drive.
        {{u"C:\\x\\Data\\a.shp", u"C:\\x\\data\\b.shp"}, {{u"C:\\x\\Data\\a.shp", u"x\\Data\\a.shp"}}},
        {{u"C:\\x\\y\\a.shp"}, {{u"c:\\x\\y\\a.shp", u"x\\y\\a.shp"}}},
    };
    for (const auto& row : rows) {
        run run(from_common_top);
        for (const wide_string& path : row.collected) run.placement.common.add_path(path);
        for (const auto& [source, expected] : row.placed) run.expect_placed(source, expected);
        EXPECT_EQ(run.placement.new_path(u""), u"");
    }
}

TEST(path_placement, a_name_that_is_taken_gets_the_next_number) {
    const temporary_folder disk;
    const wide_string output = disk.path(u"out\\new._vp"), shp = disk.path(u"out\\shp\\");
    disk.write(u"out\\shp\\roads.shp");
    run run(by_type, output);
    EXPECT_EQ(run.placement.new_path(roads), shp + u"roads_(1).shp");
    EXPECT_EQ(run.placement.new_path(u"C:\\b\\roads.shp"), shp + u"roads_(1).shp")
        << "as no copy stands there";
    disk.write(u"out\\shp\\ROADS_(1).shp");
    EXPECT_EQ(run.placement.new_path(u"C:\\c\\roads.shp"), shp + u"roads_(2).shp");
    // The folder of such a grid gets a number, and the file is named after it, wherever the folder is.
    disk.write(u"out\\shp\\m.v2\\m.v2.pgrid");
    EXPECT_EQ(run.placement.new_path(u"D:\\m.v2.pgrid"), shp + u"m_(1)\\m_(1).pgrid");
    disk.write(u"out\\grids\\m.pgrid");
    disk.write(u"out\\grids_(1)\\x");
    run.options.structure_variant = from_project_folder;
    EXPECT_EQ(run.placement.new_path(grid), disk.path(u"out\\grids_(2)\\grids_(2).pgrid"));
    // A path of another drive that is not in normal form resolves to the source itself.
    disk.write(u"b.shp");
    run.placement.set_source(u"Q:\\prj\\area._vp");
    EXPECT_EQ(run.placement.new_path(disk.path(u"a\\..\\b.shp")), disk.path(u"b_(1).shp"));
}

// Simulates a parallel run that made the folder above, failed and removes it.
struct taking_back final : forwarding_system {
    using forwarding_system::forwarding_system;
    platform::outcome create_folder(const wide_string& path) override {
        const wide_string above = path_head(path_normalise(path));
        if (count-- > 0) forwarding_system::remove_folder(above);
        return forwarding_system::create_folder(path);
    }
    int count = 3;
};

TEST(create_folders, survives_a_run_that_takes_its_empty_ones_back) {
    const temporary_folder disk;
    ASSERT_TRUE(create_folders(disk.path(u"tree")));
    taking_back others(platform::current_system());
    const platform::system_override in_force(others);
    EXPECT_TRUE(create_folders(disk.path(u"tree\\a")));
    EXPECT_TRUE(path_exists(disk.path(u"tree\\a")));
}

// These folders are erased after a stop.
TEST(path_placement, created_folders_never_reach_above_a_drive_or_a_share) {
    struct any_drive : forwarding_system {
        platform::entry_status status_of(const wide_string& path) override {
            const bool exists = path.size() == path_fixed_length(path) || path == made;
            return {exists ? platform::entry_kind::folder : platform::entry_kind::none};
        }
        platform::outcome create_folder(const wide_string& path) override {
            made = path;
            return {};
        }
        wide_string made;
    } drives;
    const platform::system_override in_force(drives);
    const std::pair<wide_string, wide_string> rows[] = {
        {u"Q:/new._vp", u"Q:/maps\\"}, {u"\\\\srv\\share\\new._vp", u"\\\\srv\\share\\maps\\"}};
    for (const auto& [output, expected] : rows) {
        run run(from_project_folder, output);
        run.placement.new_path(roads);
        EXPECT_EQ(std::vector{expected}, run.placement.created_folders);
    }
}

} // namespace
} // namespace vs::project_resave
