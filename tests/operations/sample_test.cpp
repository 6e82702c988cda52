// The sample project under each folder structure: what lands where, and that the copy stands alone.
#include <set>

#include "core/paths.h"
#include "tests/support/host_fixture.h"
#include "tests/support/references_of.h"
#include "tests/support/tree_state.h"

namespace vs::project_resave {
namespace {

using names = std::set<wide_string>;

class sample : public host_fixture, public testing::WithParamInterface<uint32_t> {
protected:
    void SetUp() override { copy_sample(); }

    void move(const char* drive, const char* from, const char* to) const {
        std::filesystem::rename(native(drive) / from, native(drive) / to);
    }
    // Captions of what the new project in `folder` has that refers to something outside, or to nothing.
    static names astray(const wide_string& folder) {
        vestra::project project;
        read_back(folder + u"new._vp", project);
        const std::vector<reference> references = references_of(project);
        EXPECT_LT(60U, references.size());
        names owners;
        for (const reference& each : references)
            if (!each.path.starts_with(folder) || !path_exists(each.path)) owners.insert(each.owner);
        return owners;
    }
};

// Where files of the sample go below the new folder, structure by structure; empty: nowhere.
const struct {
    wide_view source;
    wide_view places[5];
} telling[] = {
    {u"C:\\prj\\maps\\roads.shp",
     {u"shp\\roads_(1).shp", u"maps\\roads.shp", u"maps\\roads.shp", u"prj\\maps\\roads.shp",
      u"Base maps\\Overview\\prj\\maps\\roads.shp"}},
    {u"C:\\prj\\maps\\roads_shp.pj4",
     {u"shp\\roads_(1)_shp.pj4", u"maps\\roads_shp.pj4", u"maps\\roads_shp.pj4", u"prj\\maps\\roads_shp.pj4",
      u"Geology\\prj\\maps\\roads_shp.pj4"}},
    {u"D:\\gis\\base\\roads.shp",
     {u"shp\\roads.shp", u"gis\\base\\roads.shp", u"shp\\roads.shp", u"gis\\base\\roads.shp",
      u"Geology\\gis\\base\\roads.shp"}},
    {u"C:\\prj\\grids\\thickness\\thickness.flt",
     {u"grid\\thickness\\thickness.flt", u"grids\\thickness\\thickness.flt",
      u"grids\\thickness\\thickness.flt", u"prj\\grids\\thickness\\thickness.flt",
      u"Geology\\prj\\grids\\thickness\\thickness.flt"}},
    {u"C:\\prj\\rasters\\relief.tif.ovr",
     {u"rtr\\relief.tif.ovr", u"rasters\\relief.tif.ovr", u"rasters\\relief.tif.ovr",
      u"prj\\rasters\\relief.tif.ovr", u"Base maps\\Overview\\prj\\rasters\\relief.tif.ovr"}},
    {u"C:\\data\\wells\\P-101\\core\\photos.txt",
     {u"well\\P-101\\core\\photos.txt", u"data\\wells\\P-101\\core\\photos.txt",
      u"well\\P-101\\core\\photos.txt", u"data\\wells\\P-101\\core\\photos.txt", u""}},
    {u"C:\\data\\seismic\\line_1.sgy",
     {u"sgy\\line_1.sgy", u"data\\seismic\\line_1.sgy", u"sgy\\line_1.sgy", u"data\\seismic\\line_1.sgy",
      u"Structure in 3D\\data\\seismic\\line_1.sgy"}},
    {u"C:\\data\\tables\\population.dbf", // joined to a layer, and nothing else
     {u"dbf\\population.dbf", u"data\\tables\\population.dbf", u"dbf\\population.dbf",
      u"data\\tables\\population.dbf", u"data\\tables\\population.dbf"}},
    {u"C:\\prj\\legend\\sign_lake.shp",
     {u"legend plus\\sign_lake.shp", u"legend\\sign_lake.shp", u"legend\\sign_lake.shp",
      u"prj\\legend\\sign_lake.shp", u""}},
    {u"C:\\prj\\profiles\\lines.dbf", {}}, // a profile's reference stays as it is
};

TEST_P(sample, goes_where_the_structure_says_and_stands_alone_once_it_is_moved) {
    const tree_state before[] = {state_of(native("c")), state_of(native("d"))};
    settings.structure_variant = GetParam();
    load_and_resave();
    EXPECT_TRUE(context->report.saved);
    ASSERT_EQ(1U, context->report.problems.size());
    EXPECT_EQ(u"Overview", context->report.problems[0].title);
    EXPECT_EQ(u"Lost files Old survey\n", context->report.problems[0].text);
    EXPECT_EQ((std::set<wide_string>{u"wfs_pnt_lr2d"}), context->report.unprocessed_types);
    EXPECT_EQ("", difference(before[0], state_of(native("c"))));
    EXPECT_EQ("", difference(before[1], state_of(native("d"))));

    std::set<std::string> copied;
    for (const auto& [path, state] : state_of(native("n") / "out"))
        copied.insert(path.substr(path.rfind('/') + 1));
    for (const auto& row : telling) {
        const wide_view place = row.places[GetParam()];
        if (place.empty())
            EXPECT_FALSE(copied.contains(platform::to_utf8(path_file_name(row.source))));
        else
            EXPECT_EQ(read(wide_string(row.source)), read(u"N:\\out\\" + wide_string(place)))
                << platform::to_utf8(place);
    }

    names expected{u"Old survey", u"Profile lines", u"Monthly report"}; // lost, kept as it is, no unit
    if (GetParam() == folder_per_scene)
        expected.insert({u"Well P-101", u"Profile of P-102", u"Section 1"}); // wells take no part in it
    else
        expected.insert(u"Page A3"); // its new place is told, not filled
    EXPECT_EQ(expected, astray(u"N:\\out\\"));

    move("n", "out", "moved");
    move("c", "prj", "prj away");
    move("c", "data", "data away");
    move("d", "gis", "gis away");
    EXPECT_EQ(expected, astray(u"N:\\moved\\"));
}

class stopped_sample : public sample {};

TEST_P(stopped_sample, is_erased_without_a_trace_by_a_stop_anywhere) {
    settings.structure_variant = GetParam();
    load_and_resave();
    const size_t polls = script.polls;
    EXPECT_LT(60U, polls);
    remove_tree(u"N:\\out");
    write(u"N:\\out\\shp\\roads.shp", "older");
    const tree_state before = state_of(native("n"));
    for (const size_t quarter : {2U, 3U, 4U}) {
        load();
        script.stop_at_poll = polls * quarter / 4;
        script.answers = {answer::yes, answer::no};
        resave();
        EXPECT_TRUE(context->report.stopped);
        EXPECT_EQ("", difference(before, state_of(native("n"))));
    }
}

INSTANTIATE_TEST_SUITE_P(structures, sample, testing::Range(0U, 5U));
INSTANTIATE_TEST_SUITE_P(structures, stopped_sample,
                         testing::Values(uint32_t{by_type}, uint32_t{folder_per_scene}));

} // namespace
} // namespace vs::project_resave
