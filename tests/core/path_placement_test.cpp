#include "core/path_placement.h"

#include <gtest/gtest.h>

#include "core/paths.h"
#include "core/resave_options.h"
#include "logs/log_file.h"
#include "platform/text.h"
#include "reference_host/shell/service_registry.h"
#include "reference_host/toolkit/dialog_connections.h"
#include "reference_host/toolkit/scripted_dialog_runner.h"
#include "tests/support/temporary_folder.h"
#include "ui/dialog_factories.h"

namespace vs::project_resave {

namespace {

// The run of a project C:\prj\area._vp; neither C: nor N: need exist.
struct run {
    explicit run(uint32_t variant, const wide_string& output = u"N:\\out\\new._vp") {
        options.structure_variant = variant;
        placement.set_source(u"C:\\prj\\area._vp");
        placement.set_output(output);
    }

    resave_options options{nullptr};
    log_file log{nullptr};
    path_placement placement{nullptr, &log, &options};
};

struct placing {
    uint32_t variant;
    wide_string type_folder;
    wide_string source;
    wide_string expected; // below N:\out\ unless it has a drive
};

void expect_placed(run& run, const placing& row) {
    run.placement.set_type_folder(row.type_folder);
    EXPECT_EQ(platform::to_utf8(run.placement.new_path(row.source)),
              platform::to_utf8(path_join(u"N:\\out\\", row.expected)))
        << row.variant << " " << platform::to_utf8(row.source);
}

const wide_string roads = u"C:\\prj\\maps\\roads.shp";
const wide_string well = u"C:\\data\\wells\\w1.shp";
const wide_string lake = u"D:\\gis\\base\\lake.shp";
const wide_string grid = u"C:\\prj\\grids\\m.pgrid";

} // namespace

TEST(path_placement, each_structure_puts_a_file_where_it_promises) {
    const std::vector<placing> rows = {
        {0, u"shp", roads, u"shp\\roads.shp"},
        {0, u"shp", well, u"shp\\w1.shp"},
        {0, u"shp", lake, u"shp\\lake.shp"},
        {0, u"grid", grid, u"grid\\m\\m.pgrid"},
        {0, u"grid", u"C:\\prj\\m.PGRID", u"grid\\m.PGRID"},
        {0, u"", roads, u"roads.shp"},
        {0, u"legend plus\\", roads, u"legend plus\\roads.shp"},
        {1, u"shp", roads, u"maps\\roads.shp"},
        {1, u"shp", well, u"data\\wells\\w1.shp"},
        {1, u"shp", lake, u"gis\\base\\lake.shp"},
        {1, u"grid", grid, u"grids\\m.pgrid"},
        {1, u"shp", u"C:\\PRJ\\a.shp", u"a.shp"},
        {1, u"shp", u"D:\\a\\..\\b.shp", u"D:\\b.shp"}, // not in normal form, so its drive is not cut off
        {1, u"shp", u"maps\\a.shp", u"s\\a.shp"},
        {1, u"shp", u"\\\\srv\\share\\a.shp", u"srv\\share\\a.shp"},
        {2, u"shp", roads, u"maps\\roads.shp"},
        {2, u"shp", u"C:\\prj\\roads.shp", u"roads.shp"},
        {2, u"shp", well, u"shp\\w1.shp"},
        {2, u"shp", lake, u"shp\\lake.shp"},
        {2, u"grid", grid, u"grids\\m.pgrid"},
        {2, u"grid", u"D:\\m.pgrid", u"grid\\m\\m.pgrid"},
    };
    for (const placing& row : rows) {
        run run(row.variant);
        expect_placed(run, row);
    }
    run unknown(5);
    EXPECT_EQ(unknown.placement.new_path(roads), u"");
}

TEST(path_placement, a_common_top_folder_is_kept_under_the_new_project) {
    struct {
        std::vector<wide_string> collected;
        std::vector<std::pair<wide_string, wide_string>> placed;
    } const rows[] = {
        {{roads, well, lake, grid},
         {{roads, u"prj\\maps\\roads.shp"},
          {well, u"data\\wells\\w1.shp"},
          {grid, u"prj\\grids\\m.pgrid"},
          {lake, u"base\\lake.shp"},
          {u"E:\\q\\r\\s.shp", u"q\\r\\s.shp"},
          {u"\\\\server\\share\\file", u"server\\share\\file"}}},
        {{roads, grid}, {{roads, u"prj\\maps\\roads.shp"}}},
        {{u"C:\\prj\\area._vp", roads, grid}, {{roads, u"prj\\maps\\roads.shp"}}},
        {{u"C:\\a\\b\\c.shp"}, {{u"C:\\a\\b\\c.shp", u"b\\c.shp"}}},
        // Letter case counts among what was collected, and so does that of the drive.
        {{u"C:\\x\\Data\\a.shp", u"C:\\x\\data\\b.shp"}, {{u"C:\\x\\Data\\a.shp", u"x\\Data\\a.shp"}}},
        {{u"C:\\x\\a.shp"}, {{u"c:\\x\\a.shp", u"x\\a.shp"}}},
        {{u"\\\\server\\share\\a", u"maps\\b"}, {{roads, u"prj\\maps\\roads.shp"}}},
        {{u"C:name", roads}, {{roads, u"prj\\maps\\roads.shp"}}},
    };
    for (const auto& row : rows) {
        run run(from_common_top);
        for (const wide_string& path : row.collected) run.placement.common.add_path(path);
        for (const auto& [source, expected] : row.placed) expect_placed(run, {3, u"shp", source, expected});
        EXPECT_EQ(run.placement.new_path(u""), u"");
    }
}

TEST(path_placement, each_scene_gets_its_folder_and_its_own_copies) {
    const temporary_folder disk;
    run run(folder_per_scene, disk.path(u"out\\new._vp"));
    path_placement& placement = run.placement;
    common_directory scene;
    for (const wide_string& path : {roads, grid}) scene.add_path(path);

    placement.set_scene(&scene, u"Area.1");
    EXPECT_EQ(placement.current_output_folder(), disk.path(u"out\\Area.1\\"));
    const wide_string first = placement.new_path(roads);
    EXPECT_EQ(first, disk.path(u"out\\Area.1\\prj\\maps\\roads.shp"));
    placement.register_placed(roads, first);
    EXPECT_EQ(placement.lookup_placed(u"c:/prj/maps/ROADS.shp"), first);

    placement.set_scene(&scene, u"Area.1"); // the last dot counts as an extension
    EXPECT_EQ(placement.new_path(roads), disk.path(u"out\\Area_1.1\\prj\\maps\\roads.shp"));
    EXPECT_FALSE(placement.is_placed(roads));
    EXPECT_EQ(placement.placed.size(), 1u);

    placement.register_placed(roads, first);
    placement.clear_scene(); // what was placed for the last scene stays known
    EXPECT_TRUE(placement.is_placed(roads));
    placement.common.add_path(well);
    EXPECT_EQ(placement.new_path(well), disk.path(u"out\\wells\\w1.shp"));
    EXPECT_EQ(placement.current_output_folder(), disk.path(u"out\\"));
    placement.set_scene(&scene, u"");
    EXPECT_EQ(placement.new_path(roads), disk.path(u"out\\prj\\maps\\roads.shp"));
}

TEST(path_placement, a_name_that_is_taken_gets_the_next_number) {
    const temporary_folder disk;
    const wide_string output = disk.path(u"out\\new._vp");
    disk.write(u"out\\shp\\roads.shp");
    {
        run run(by_type, output);
        run.log.open(disk.path(u"log.txt"), true);
        run.placement.set_type_folder(u"shp");
        EXPECT_EQ(run.placement.new_path(roads), disk.path(u"out\\shp\\roads_(1).shp"));
        // Its copy failed, so the name is free for the next.
        EXPECT_EQ(run.placement.new_path(u"C:\\b\\roads.shp"), disk.path(u"out\\shp\\roads_(1).shp"));
        disk.write(u"out\\shp\\ROADS_(1).shp");
        EXPECT_EQ(run.placement.new_path(u"C:\\c\\roads.shp"), disk.path(u"out\\shp\\roads_(2).shp"));
        EXPECT_NE(disk.read(u"log.txt").find("\r\nC:\\c\\roads.shp\r\n"), std::string::npos);
        EXPECT_TRUE(run.placement.created_folders.empty());
    }
    // The folder of such a grid is numbered, and the file named after it, wherever the folder stands.
    disk.write(u"out\\grid\\m.v2\\m.v2.pgrid");
    disk.write(u"out\\grids\\m.pgrid");
    disk.write(u"out\\grids_(1)\\x");
    run by_types(by_type, output);
    by_types.placement.set_type_folder(u"grid");
    EXPECT_EQ(by_types.placement.new_path(u"D:\\m.v2.pgrid"), disk.path(u"out\\grid\\m_(1)\\m_(1).pgrid"));
    run by_folders(from_project_folder, output);
    EXPECT_EQ(by_folders.placement.new_path(grid), disk.path(u"out\\grids_(2)\\grids_(2).pgrid"));
}

TEST(path_placement, a_person_may_name_the_file_and_cancelling_never_stops_the_run) {
    const temporary_folder disk;
    disk.write(u"out\\shp\\roads.shp");
    unique_name_dialog_factory factory;
    vestra::shell::service_registry services;
    services.add(u"", pointer_to<service_factory_impl>(factory), {});
    wide_string typed = disk.path(u"Elsewhere\\R.shp");
    int asked = 0;
    vestra::toolkit::scripted_dialog_runner person([&](const vestra::toolkit::element_view& dialog) {
        ++asked;
        return vestra::toolkit::enter_text(*find(dialog, u"file_input"), typed) && !typed.empty();
    });
    const vestra::toolkit::dialog_connections connections(person);

    run run(by_type, disk.path(u"out\\new._vp"));
    run.options.rename_on_conflict = false;
    run.options.lower_case = true;
    run.placement.set_type_folder(u"shp");
    EXPECT_EQ(run.placement.new_path(roads), typed) << "not lowered, wherever it lies";
    typed.clear();
    const wide_string next = run.placement.new_path(roads);
    EXPECT_EQ(path_file_name(next), u"roads_(1).shp");
    run.placement.new_path(well);
    EXPECT_EQ(asked, 2) << "only for a name that is taken";
}

TEST(path_placement, lower_case_covers_the_whole_path) {
    run run(from_project_folder);
    run.options.lower_case = true;
    EXPECT_EQ(run.placement.new_path(u"C:\\prj\\Карты\\ROADS.shp"), u"n:\\out\\карты\\roads.shp");
}

// What is listed here is erased after a stop: every level that was missing, and never more.
TEST(path_placement, created_folders_are_the_missing_levels) {
    const temporary_folder disk;
    const auto created = [](const wide_string& output) {
        run run(from_project_folder, output);
        run.placement.new_path(roads);
        return run.placement.created_folders;
    };
    using folders = std::vector<wide_string>;
    const wide_string top = disk.path();
    EXPECT_EQ(created(top + u"\\a\\b\\new._vp"),
              (folders{top + u"\\a\\b\\maps\\", top + u"\\a\\b\\", top + u"\\a\\"}));
    EXPECT_TRUE(std::filesystem::is_directory(disk.native() / "a/b/maps"));
    EXPECT_EQ(created(top + u"\\a\\b\\new._vp"), folders{});
    EXPECT_EQ(created(top + u"/c/new._vp"), (folders{top + u"/c/maps\\", top + u"/c/"}));
    EXPECT_EQ(created(u"Q:/out/new._vp"), (folders{u"Q:/out/maps\\", u"Q:/out/"}));
    EXPECT_EQ(created(u"\\\\srv\\share\\out\\new._vp"),
              (folders{u"\\\\srv\\share\\out\\maps\\", u"\\\\srv\\share\\out\\"}));
}

TEST(path_placement, a_layout_page_gets_a_place_as_text_only) {
    const temporary_folder disk;
    disk.write(u"out\\maps\\roads.shp");
    const wide_string out = disk.path(u"out\\");
    struct {
        uint32_t variant;
        wide_string source, expected;
    } const rows[] = {
        {0, roads, out + u"files"},
        {1, roads, out + u"maps\\roads.shp"},
        {1, well, out + u"data\\wells\\w1.shp"},
        {1, u"D:\\img\\page.bmp", u"\\img\\page.bmp"}, // required as it is
        {2, u"D:\\img\\Page.bmp", out + u"files\\Page.bmp"},
    };
    for (const auto& row : rows) {
        run run(row.variant, disk.path(u"out\\new._vp"));
        run.options.lower_case = true;
        EXPECT_EQ(run.placement.folder_for(row.source), row.expected) << row.variant;
    }
}

TEST(path_placement, a_new_run_forgets_the_files_and_keeps_the_paths) {
    run run(folder_per_scene);
    common_directory scene;
    run.placement.set_scene(&scene, u"S");
    run.placement.register_placed(u"", u"N:\\out\\S._sn");
    run.placement.register_placed(roads, u"N:\\out\\1");
    run.placement.register_placed(roads, u"N:\\out\\2");
    EXPECT_EQ(run.placement.lookup_placed(roads), u"N:\\out\\1");
    run.placement.common.add_path(roads);
    run.placement.set_output(u"M:\\x\\a.b._vp");
    EXPECT_TRUE(run.placement.placed.empty() && run.placement.common.drives.empty());
    EXPECT_TRUE(!run.placement.scene_common && run.placement.scene_folder.empty());
    EXPECT_EQ(run.placement.log_path, u"M:\\x\\a.b_log.txt");
    EXPECT_EQ(run.placement.source_folder, u"C:\\prj\\");
    EXPECT_TRUE(run.placement.is_placed(roads)) << "the register of the last scene stays";
}

} // namespace vs::project_resave
