#include "operations/run/path_placement.h"

#include <gtest/gtest.h>

#include "logs/log_file.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_report.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "tests/support/forwarding_system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

namespace {

// The run of a project C:\prj\area._vp; neither C: nor N: need exist.
struct run {
    explicit run(uint32_t variant, const wide_string& output = u"N:\\out\\new._vp") {
        options.structure_variant = static_cast<project_resave::structure>(variant);
        placement.set_source(u"C:\\prj\\area._vp");
        placement.set_output(output);
        placement.type_folder = u"shp";
    }
    // `expected` is below N:\out unless it has a drive.
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

} // namespace

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
        // Letter case counts among what was collected, and so does that of the drive.
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
    // The folder of such a grid is numbered, and the file named after it, wherever the folder stands.
    disk.write(u"out\\shp\\m.v2\\m.v2.pgrid");
    EXPECT_EQ(run.placement.new_path(u"D:\\m.v2.pgrid"), shp + u"m_(1)\\m_(1).pgrid");
    disk.write(u"out\\grids\\m.pgrid");
    disk.write(u"out\\grids_(1)\\x");
    run.options.structure_variant = from_project_folder;
    EXPECT_EQ(run.placement.new_path(grid), disk.path(u"out\\grids_(2)\\grids_(2).pgrid"));
    // A path of another drive that is not in normal form leads to the source itself.
    disk.write(u"b.shp");
    run.placement.set_source(u"Q:\\prj\\area._vp");
    EXPECT_EQ(run.placement.new_path(disk.path(u"a\\..\\b.shp")), disk.path(u"b_(1).shp"));
}

// What is listed here is erased after a stop.
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

} // namespace vs::project_resave
