#include "core/copying.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <stdexcept>

#include "core/path_files.h"
#include "core/paths.h"
#include "framework/string_adapter.h"
#include "host/vsk_attr_data.h"
#include "operations/project_context.h"
#include "platform/text.h"
#include "reference_host/model/counted.h"
#include "tests/support/forwarding_system.h"
#include "tests/support/temporary_folder.h"

namespace vs::project_resave {

namespace {

using names = std::vector<wide_string>;

// Files are copied from src to out; each file's content is its own name.
class copying : public testing::Test {
protected:
    copying() { begin({}, {}); }
    ~copying() override { EXPECT_EQ(vestra::living_objects(), objects_before); }

    void begin(const names& present, const names& in_the_way) {
        remove_tree(disk.path(u"src"));
        remove_tree(disk.path(u"out"));
        create_folders(disk.path(u"src"));
        create_folders(disk.path(u"out"));
        for (const wide_string& name : present) disk.write(u"src\\" + name, platform::to_utf8(name));
        for (const wide_string& name : in_the_way) disk.write(u"out\\" + name, "in the way");
        context.report.reset();
        context.report.current_unit = u"unit";
        context.placement.reset();
    }
    // "source>target" for each file that came to stand in out.
    names copied() const {
        names result;
        for (const auto& entry : platform::list_tree(platform::current_system(), out)) {
            if (entry.is_folder) continue;
            const wide_string target = path_relative(out, entry.path);
            const std::string content = disk.read(u"out\\" + target);
            if (content != "in the way") result.push_back(platform::from_utf8(content) + u">" + target);
        }
        return result;
    }
    size_t failures() const {
        const auto& problems = context.report.problems;
        return problems.empty() ? 0 : static_cast<size_t>(std::ranges::count(problems[0].text, u'\n'));
    }

    size_t objects_before = vestra::living_objects();
    temporary_folder disk;
    wide_string src = disk.path(u"src\\");
    wide_string out = disk.path(u"out\\");
    project_context context{nullptr};
};

using routine = std::function<bool(const wide_string&, const wide_string&, project_context&)>;

bool copy_raster(const wide_string& source, const wide_string& target, project_context& context) {
    copy_one(source, target, context);
    copy_overview_file(source, target, context);
    const bool done = copy_world_files(source, target, context);
    copy_projection_file(source, target, context);
    return done;
}

bool copy_shape(const wide_string& source, const wide_string& target, project_context& context) {
    vs_attr_data* const table = vs_attr_data_create();
    const bool done = copy_shape_family(source, target, table, context);
    vs_attr_data_destroy(table);
    return done;
}

bool copy_shape_alone(const wide_string& source, const wide_string& target, project_context& context) {
    return copy_shape_family(source, target, nullptr, context);
}

routine forward(bool (*copy)(const wide_string&, const wide_string&, project_context&)) { return copy; }

} // namespace

TEST_F(copying, companions_follow_the_main_file_under_its_new_name) {
    struct {
        routine copy;
        names present, in_the_way;
        wide_string source, target;
        names expected;
        size_t failures;
        bool result;
    } const rows[] = {
        {copy_shape,
         {u"r.shp", u"r.shx", u"r.dbf", u"r.cpg", u"r_shp.pj4"},
         {},
         u"r.shp",
         u"r_(1).shp",
         {u"r.cpg>r_(1).cpg", u"r.dbf>r_(1).dbf", u"r.shp>r_(1).shp", u"r.shx>r_(1).shx",
          u"r_shp.pj4>r_(1)_shp.pj4"},
         0,
         true},
        {copy_shape, {u"r.shp", u"r.cpg"}, {}, u"r.shp", u"r.shp", {u"r.cpg>r.cpg", u"r.shp>r.shp"}, 2, true},
        {copy_shape_alone,
         {u"r.shp", u"r.shx", u"r.dbf"},
         {},
         u"r.shp",
         u"s.shp",
         {u"r.shp>s.shp", u"r.shx>s.shx"},
         0,
         true},
        {copy_raster,
         {u"a.tif", u"a.tif.ovr", u"a.tfw", u"a.tfr", u"a_tif.pj4"},
         {},
         u"a.tif",
         u"b.c.tif",
         {u"a.tfr>b.c.tfr", u"a.tfw>b.c.tfw", u"a.tif>b.c.tif", u"a.tif.ovr>b.c.tif.ovr",
          u"a_tif.pj4>b.c_tif.pj4"},
         0,
         true},
        {copy_raster,
         {u"a.jpeg", u"a.jew", u"a.jer", u"a.jgw"},
         {},
         u"a.jpeg",
         u"a.jpeg",
         {u"a.jer>a.jer", u"a.jew>a.jew", u"a.jpeg>a.jpeg"},
         0,
         true},
        {copy_raster,
         {u"a.jp2", u"a.j2r"},
         {},
         u"a.jp2",
         u"a.jp2",
         {u"a.j2r>a.j2r", u"a.jp2>a.jp2"},
         0,
         true},
        {copy_raster,
         {u"a.xy", u"a.xw", u"a.xr"},
         {},
         u"a.xy",
         u"a.xy",
         {u"a.xr>a.xr", u"a.xw>a.xw", u"a.xy>a.xy"},
         0,
         true},
        // A world file that cannot be copied takes its sibling with it.
        {copy_raster,
         {u"a.tif", u"a.tfw", u"a.tfr"},
         {u"a.tfw"},
         u"a.tif",
         u"a.tif",
         {u"a.tif>a.tif"},
         1,
         false},
        {forward(copy_overview_file), {u"a.tif"}, {}, u"a.tif", u"a.tif", {}, 0, false},
        {forward(copy_code_page_file), {u"a.dbf"}, {}, u"a.dbf", u"a.dbf", {}, 0, true},
        {forward(copy_projection_file), {u"a", u"a.pj4"}, {}, u"a", u"b", {u"a.pj4>b.pj4"}, 0, true},
        {forward(copy_one), {u"a"}, {u"A"}, u"a", u"a", {}, 1, false},
        {forward(copy_one), {u"a"}, {}, u"a", u"no folder\\a", {}, 1, false},
        {forward(copy_table),
         {u"t.dbf", u"t.cpg"},
         {u"t.dbf"},
         u"t.dbf",
         u"t.dbf",
         {u"t.cpg>t.cpg"},
         1,
         true},
        {forward(copy_file_and_folder),
         {u"w.wel", u"w\\logs.las", u"w\\core\\a.txt"},
         {},
         u"w.wel",
         u"v.wel",
         {u"w\\core\\a.txt>v\\core\\a.txt", u"w\\logs.las>v\\logs.las", u"w.wel>v.wel"},
         0,
         true},
        {forward(copy_file_and_folder),
         {u"w.wel", u"w\\logs.las"},
         {u"w.wel"},
         u"w.wel",
         u"w.wel",
         {},
         1,
         true},
        {forward(copy_file_and_folder),
         {u"w.wel", u"w\\a"},
         {u"w\\b"},
         u"w.wel",
         u"w.wel",
         {u"w.wel>w.wel"},
         1,
         true},
        {forward(copy_file_and_folder), {u"w"}, {}, u"w", u"w", {u"w>w"}, 1, true},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(platform::to_utf8(row.source + u">" + row.target));
        begin(row.present, row.in_the_way);
        EXPECT_EQ(row.copy(src + row.source, out + row.target, context), row.result);
        names found = copied(), expected = row.expected;
        std::ranges::sort(found);
        std::ranges::sort(expected);
        EXPECT_EQ(found, expected);
        EXPECT_EQ(failures(), row.failures);
    }
}

TEST_F(copying, a_file_is_registered_only_if_its_copy_stands) {
    begin({u"a.tif", u"a_tif.pj4", u"w.wel", u"w\\x"}, {u"b.tif"});
    copy_one(src + u"a.tif", out + u"b.tif", context);
    EXPECT_FALSE(context.placement.is_placed(src + u"a.tif"));
    copy_projection_file(src + u"a.tif", out + u"a.tif", context);
    copy_projection_file(src + u"a.tif", out + u"c.tif", context); // two rasters share it: copied once
    EXPECT_EQ(copied(), names{u"a_tif.pj4>a_tif.pj4"});
    EXPECT_EQ(failures(), 1u);
    copy_file_and_folder(src + u"w.wel", out + u"w.wel", context);
    ASSERT_EQ(context.placement.placed.size(), 3u);
    EXPECT_EQ(context.placement.placed[1].new_path, out + u"w");
    EXPECT_EQ(context.placement.placed[2].old_path, src + u"w.wel");
}

TEST_F(copying, a_raster_without_a_proper_extension_is_refused_by_an_exception) {
    for (const wide_view name : {u"raster", u"raster.", u"raster.x"})
        EXPECT_THROW(copy_world_files(src + wide_string(name), out + u"r", context), std::out_of_range);
}

TEST_F(copying, a_folder_comes_whole_or_tells_that_it_did_not) {
    begin({u"g\\a\\1", u"g\\b\\c\\2", u"g\\3"}, {u"old\\3"});
    disk.write(u"out\\empty target\\x", "in the way");
    EXPECT_FALSE(copy_folder(src + u"none", out + u"n", false, false));
    EXPECT_FALSE(copy_folder(src + u"g", out + u"old", false, false));
    EXPECT_FALSE(
        copy_folder(src + u"g", out + u"old", true, false)); // 3 stands there and may not be replaced
    EXPECT_TRUE(copy_folder(src + u"g", out + u"old", true, true));
    EXPECT_TRUE(copy_folder(src + u"g\\", out + u"deep\\new", false, false));
    EXPECT_EQ(disk.read(u"out\\deep\\new\\b\\c\\2") + disk.read(u"out\\old\\3"), "g\\b\\c\\2g\\3");

    struct third_copy_fails final : forwarding_system {
        bool copy_file(const wide_string& source, const wide_string& target, bool replace) override {
            return ++copies < 3 && forwarding_system::copy_file(source, target, replace);
        }
        int copies = 0;
    } faults;
    const platform::system_override in_force(faults);
    EXPECT_FALSE(copy_folder(src + u"g", out + u"part", false, false));
    EXPECT_TRUE(path_exists(out + u"part\\3") && !path_exists(out + u"part\\b\\c\\2"));
}

TEST_F(copying, members_of_a_data_set_follow_the_new_name_of_the_main_file) {
    struct {
        wide_string source, target;
        bool lower, keep_case;
        names members;
        names expected; // the main file is always there
        size_t failures;
    } const rows[] = {
        {u"m.tos", u"m.tos", false, true, {u"m.tod", u"x.bin"}, {u"m.tod", u"x.bin"}, 0},
        {u"m.tos",
         u"m_(1).tos",
         false,
         true,
         {u"m.tod", u"comment.txt"},
         {u"m_(1).tod", u"com_(1)m_(1)ent.txt"},
         0},
        {u"Map.tos", u"map.tos", true, true, {u"Map_A.TOD"}, {u"map_A.TOD"}, 0},
        {u"Map.tos", u"map.tos", true, false, {u"Map_A.TOD"}, {u"map_a.tod"}, 0},
        {u"m.tos", u"m.tos", false, true, {u"sub\\m.bin", u"lost.bin"}, {}, 2}, // no folder is made for a
                                                                                // member
    };
    for (const auto& row : rows) {
        begin(row.members, {});
        remove_tree(src + u"lost.bin");
        std::string content = "TOS 1\nproperty X\n";
        for (const wide_string& member : row.members) content += "member " + platform::to_utf8(member) + "\n";
        disk.write(u"src\\" + row.source, content);
        context.options.lower_case = row.lower;
        copy_one(src + row.source, out + row.target, context);
        EXPECT_TRUE(copy_data_source_files(src + row.source, out + row.target, row.keep_case, context));
        names found;
        for (const auto& entry : platform::current_system().list(out))
            if (entry.name != row.target) found.push_back(entry.name);
        names expected = row.expected;
        std::ranges::sort(expected);
        EXPECT_EQ(found, expected);
        EXPECT_EQ(failures(), row.failures);
    }
    begin({u"broken.tos"}, {});
    EXPECT_FALSE(copy_data_source_files(src + u"broken.tos", out + u"broken.tos", true, context));
    EXPECT_FALSE(copy_data_source_files(u"", out + u"x", true, context));
    EXPECT_EQ(failures(), 0u);
}

TEST_F(copying, joins_come_back_when_every_table_has_its_place) {
    begin({u"base.dbf", u"placed.dbf", u"other.dbf", u"other.cpg"}, {});
    context.placement.set_output(out + u"new._vp");
    const auto table = [](const wide_string& path) {
        vs_attr_data* const made = vs_attr_data_create();
        vs_attr_data_set_wfilename(made, path.c_str());
        return std::unique_ptr<vs_attr_data, void (*)(vs_attr_data*)>(made, vs_attr_data_destroy);
    };
    const auto base = table(src + u"base.dbf");
    int32_t field = 1;
    for (const wide_view name : {u"other.dbf", u"lost.dbf", u"placed.dbf"}) {
        vs_attr_data_join(base.get(), table(src + wide_string(name)).get(), field, field * 10);
        ++field;
    }
    copy_table_and_joins(base.get(), src + u"base.dbf", out + u"base.dbf", context);
    EXPECT_FALSE(vs_attr_data_is_joined(base.get()));
    copy_table(src + u"placed.dbf", out + u"placed.dbf", context); // the run reaches it later

    context.deferred_joins_.run();
    ASSERT_EQ(vs_attr_data_get_join_count(base.get()), 2); // the lost one stays off
    EXPECT_EQ(host_string(vs_attr_data_get_join_other_source, base.get(), 0), out + u"dbf\\other.dbf");
    EXPECT_EQ(vs_attr_data_get_join_other_field(base.get(), 0), 10);
    EXPECT_EQ(host_string(vs_attr_data_get_join_other_source, base.get(), 1), out + u"placed.dbf");
    EXPECT_EQ(vs_attr_data_get_join_base_field(base.get(), 1), 3);
    EXPECT_EQ(disk.read(u"out\\dbf\\other.cpg"), "other.cpg");
    EXPECT_EQ(context.report.problems.size(), 1u);
    EXPECT_TRUE(context.deferred_joins_.pending.empty());
    EXPECT_EQ(context.placement.type_folder, u"files");
}

} // namespace vs::project_resave
