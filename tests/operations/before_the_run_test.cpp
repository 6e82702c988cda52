// Loading a project, and the check of letter case, whose cost bench/run measures.
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

class loading : public host_fixture {
protected:
    bool load(const wide_string& path) {
        changes = 0;
        script.events.clear();
        return context->load_project(path, true, false);
    }
    wide_string broken() { return write(u"C:\\prj\\broken._vp", "<project version=\"1\"><scene/>"); }
    void expect_nothing_loaded() const {
        EXPECT_FALSE(context->project);
        EXPECT_TRUE(context->tree.empty() && context->units.rows().empty());
        EXPECT_EQ(0, context->sizes.total_kb());
        EXPECT_EQ(0U, vestra::living_objects());
    }
};

TEST_F(loading, a_project_that_cannot_be_read_is_reported_once) {
    project_builder().scene_2d(u"S").save(source);
    const wide_string bad[] = {broken(), u"C:\\prj\\none._vp", u"C:\\prj", u"X:\\area._vp", u""};
    for (const wide_string& path : bad) {
        ASSERT_TRUE(load(source));
        EXPECT_FALSE(load(path));
        EXPECT_EQ(1U, changes);
        EXPECT_EQ((events{{kind::wait, load_string(text::project_opens)},
                          {kind::error, load_string(text::failed_to_load_project)}}),
                  told());
        expect_nothing_loaded();
    }
}

TEST_F(loading, a_second_project_releases_the_first_and_starts_afresh) {
    copy_sample();
    const wide_string scene = u"253ad0de-e325-5dd3-8153-ceac9a173086";
    ASSERT_TRUE(load(source));
    const size_t objects = vestra::living_objects(), units = context->units.rows().size();
    const double kilobytes = context->sizes.total_kb();
    EXPECT_LT(60, kilobytes);
    for (int again = 0; again < 2; ++again) {
        (*context->units.find(scene))->set_selected(false);
        ASSERT_TRUE(load(context->placement.source_project_path));
        EXPECT_EQ(objects, vestra::living_objects());
        EXPECT_EQ(units, context->units.rows().size());
        EXPECT_EQ(kilobytes, context->sizes.total_kb());
        EXPECT_TRUE(context->selection.is_selected(scene)) << "as everything is again";
        EXPECT_EQ((std::set<wide_string>{u"wfs_pnt_lr2d"}), context->report.unprocessed_types());
        EXPECT_EQ(1U, changes);
    }
    project_builder().save(source);
    ASSERT_TRUE(load(source));
    resave();
    EXPECT_EQ((events{{kind::message, load_string(text::project_saved)},
                      {kind::yes_no, load_string(text::reopen_source_project)}}),
              script.events)
        << "without a caption, as nothing has a length";
    ASSERT_TRUE(load(source));
    context->selection.set_selected(scene, false);
    context->close_project();
    context->close_project();
    EXPECT_EQ(2U, changes);
    context->selection.set_selected(u"", false); // what has no identity cannot be left out
    EXPECT_TRUE(context->selection.is_selected(u""));
    expect_nothing_loaded();
    EXPECT_TRUE(context->selection.is_selected(scene));
}

TEST_F(loading, the_load_log_holds_the_last_step_alone) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"R", u"C:\\data\\none.tif").save(u"C:\\prj\\a.b._vp");
    context->load_project(u"C:\\prj\\a.b._vp", false, false);
    EXPECT_FALSE(path_exists(u"C:\\prj\\a.b_last_resave_open_log.txt"));
    context->load_project(u"C:\\prj\\a.b._vp", false, true);
    EXPECT_EQ("DBF tables - End\r\n", read(u"C:\\prj\\a.b_last_resave_open_log.txt"));
    context->load_project(broken(), false, true);
    EXPECT_EQ("Begin load project from xml\r\n", read(u"C:\\prj\\broken_last_resave_open_log.txt"));
}

// A map that was saved from the project has its own copies of the layers.
TEST_F(loading, of_two_elements_with_one_uuid_the_first_is_found) {
    project_builder project;
    project.scene_2d(u"S").layer("rtr_lr2d", u"First", u"C:\\data\\a.tif");
    project.layer("vs_scene_layer_meta_id", u"Map", u"C:\\prj\\m._sn").save(source);
    project.model.scenes_2d.at(0)->at(0)->caption = u"Again";
    project.save_scene(u"C:\\prj\\m._sn");
    ASSERT_TRUE(load(source));
    EXPECT_EQ(u"First", (*context->units.find(project.id(u"First")))->caption());
}

constexpr const char* well = "plugin_lr_2d_well_hole_2d_3"; // its file, and a folder of the same stem

class path_case : public host_fixture {
protected:
    // Returns the report after checking what the user was shown.
    std::string check(int32_t told) {
        script.events.clear();
        const tree_state before = sources();
        EXPECT_TRUE(context->check_path_case(report));
        EXPECT_EQ(texts{load_string(told)}, script.texts(kind::message));
        EXPECT_EQ(told == text::case_differs, context->case_differs);
        EXPECT_EQ("", difference(before, sources()));
        return path_exists(report) ? read(report) : "no report";
    }
    // Returns three lines of the report.
    static std::string block(const wide_string& stored, const wide_string& spelled) {
        return platform::to_utf8(stored) + "\r\n" + platform::to_utf8(spelled) + "\r\n\r\n";
    }

    const wide_string report = n + u"out\\report.txt";
};

TEST_F(path_case, the_sample_says_lake_where_the_disk_says_Lake) {
    copy_sample();
    load();
    std::string expected = block(u"D:\\GIS\\base\\lake.shp", u"D:\\gis\\base\\Lake.shp");
    for (const wide_string name : {u"Lake.shx", u"Lake.dbf", u"Lake.cpg", u"Lake.prj"}) // named by the disk
        expected += block(u"D:\\GIS\\base\\" + name, u"D:\\gis\\base\\" + name);
    EXPECT_EQ(expected, check(text::case_differs));
}

TEST_F(path_case, only_spellings_that_differ_from_the_disk_are_reported) {
    const wide_string file = write(c + u"Wells\\P-1.wel"), folder = c + u"Wells\\P-1";
    write(folder + u"\\log.txt");
    const struct {
        wide_string stored;
        std::string told;
    } rows[] = {
        {file, ""},
        {c + u"wells\\P-1.wel", block(c + u"wells\\P-1.wel", file) + block(c + u"wells\\P-1", folder)},
        {c + u"Wells\\p-1.WEL", block(c + u"Wells\\p-1.WEL", file) + block(c + u"Wells\\p-1", folder)},
        {u"C:/Wells/P-1.wel", block(u"C:/Wells/P-1.wel", file) + block(u"C:/Wells/P-1", folder)},
        {u"\\\\server\\share\\p-1.wel", ""},
        {c + u"Wells\\none.wel", ""},
        {u"", ""},
    };
    for (const auto& row : rows) {
        project_builder built;
        built.scene_2d(u"S").layer("rtr_lr2d", u"R").layer(well, u"W", row.stored).save(source);
        load();
        EXPECT_EQ(row.told, check(row.told.empty() ? text::case_is_right : text::case_differs));
        for (const wide_string& left_out : {built.id(u"W"), built.id(u"S")}) {
            context->selection.set_selected(left_out, false);
            EXPECT_EQ("", check(text::case_is_right));
            EXPECT_EQ(1U, script.current) << "the bar of two, of which the last is never shown";
        }
    }
}

} // namespace
} // namespace vs::project_resave
