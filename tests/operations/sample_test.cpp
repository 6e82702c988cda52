// The sample project under each folder structure: what lands where, and that the copy stands alone.
#include <set>

#include "core/paths.h"
#include "platform/text.h"
#include "tests/operations/broken_run.h"
#include "tests/support/references_of.h"

namespace vs::project_resave {
namespace {

using names = std::set<wide_string>;

class sample : public broken_run, public testing::WithParamInterface<uint32_t> {
protected:
    void SetUp() override {
        copy_sample();
        settings.structure_variant = GetParam();
        if (GetParam() == folder_per_scene)
            kept_as_they_are.insert({u"Well P-101", u"Profile of P-102", u"Section 1"}); // wells stay out
        else
            kept_as_they_are.insert(u"Page A3"); // its new place is told, not filled
    }

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
            if (!platform::folded(each.path).starts_with(platform::folded(folder)) || !path_exists(each.path))
                owners.insert(each.owner);
        return owners;
    }

    names kept_as_they_are{u"Old survey", u"Profile lines", u"Monthly report"}; // lost, not moved, no unit
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
    load();
    resave();
    EXPECT_EQ(
        (std::vector<wide_string>{u"Resave processing error:\n\nLayers is not resaving:\nwfs_pnt_lr2d\n\n"
                                  u"Overview:\nLost files Old survey\n"}),
        script.texts(kind::warning));
    std::set<std::string> copied;
    for (const std::string& path : files()) copied.insert(path.substr(path.rfind('/') + 1));
    for (const auto& row : telling) {
        const wide_view place = row.places[GetParam()];
        if (place.empty())
            EXPECT_FALSE(copied.contains(platform::to_utf8(path_file_name(row.source))));
        else
            EXPECT_EQ(read(wide_string(row.source)), read(u"N:\\out\\" + wide_string(place)))
                << platform::to_utf8(place);
    }
    EXPECT_EQ(kept_as_they_are, astray(u"N:\\out\\"));
    move("n", "out", "moved");
    move("c", "prj", "prj away");
    move("c", "data", "data away");
    move("d", "gis", "gis away");
    EXPECT_EQ(kept_as_they_are, astray(u"N:\\moved\\"));
}

// The second run finds the names of the first one taken.
TEST_P(sample, comes_in_lower_case_without_what_is_left_out_and_beside_what_is_there) {
    const bool has_tables = GetParam() != folder_per_scene;
    settings.lower_case = true;
    size_t of_first = 0;
    for (const bool is_second : {false, true}) {
        SCOPED_TRACE(is_second);
        remove_tree(output);
        const tree_state before = target();
        load();
        for (const wide_string uuid : {u"7865b2c7-7eaa-53c4-919d-e635d883acd4",  // Roads of the first scene
                                       u"c8e6c8ae-7dbd-58e2-b228-6fbc008fd40f",  // Section 1
                                       u"8b3114a0-1418-5ecb-a9e1-193e0fa08b1c"}) // Owners, joined to Deposits
            context->units.at(uuid)->set_selected(false);
        resave();
        expect_whole_copies(before);
        EXPECT_EQ(kept_as_they_are, astray(u"N:\\out\\"));
        // A member of a data set that is not named after it is in the way of itself.
        const bool collides = is_second && has_tables;
        EXPECT_EQ(collides ? u"Copy error Production_Wells.tod\n" : u"Lost files Old survey\n",
                  context->report.problems.back().text);
        if (!is_second) of_first = files().size();
        EXPECT_EQ(is_second ? 2 * of_first - (has_tables ? 1 : 0) : of_first, files().size());

        vestra::project copy;
        read_back(output, copy);
        for (const reference& each : references_of(copy)) {
            wide_string lowered = each.path;
            platform::lower_in_place(lowered);
            EXPECT_TRUE(kept_as_they_are.contains(each.owner) || lowered.ends_with(each.path.substr(2)))
                << platform::to_utf8(each.path);
        }
        EXPECT_NE(u"Roads", copy.scenes_2d.at(0)->at(0)->caption);
        EXPECT_EQ(has_tables ? 2U : 0U, copy.tables.count());
        EXPECT_EQ(has_tables, std::ranges::any_of(files(), [](const std::string& path) {
                      return path.ends_with("/owners.dbf");
                  }));
    }
}

INSTANTIATE_TEST_SUITE_P(structures, sample, testing::Range(0U, 5U));

} // namespace
} // namespace vs::project_resave
