// Loading a project: what a failure leaves, and that nothing of an earlier one stays.
#include "framework/resources/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

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

TEST_F(loading, a_project_that_cannot_be_read_leaves_nothing_and_is_told_once) {
    project_builder().scene_2d(u"S").save(source);
    const wide_string bad[] = {broken(), u"C:\\prj\\none._vp", u"C:\\prj", u"X:\\area._vp", u""};
    for (const wide_string& path : bad) {
        ASSERT_TRUE(load(source));
        EXPECT_FALSE(load(path));
        EXPECT_EQ(1U, changes);
        EXPECT_EQ((std::vector<front::event>{{kind::wait, load_string(text::project_opens)},
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
    EXPECT_EQ((std::vector<front::event>{{kind::message, load_string(text::project_saved)},
                                         {kind::yes_no, load_string(text::reopen_source_project)}}),
              script.events)
        << "without a caption, as nothing has a length";
    ASSERT_TRUE(load(source));
    context->selection.set_selected(scene, false);
    context->close_project();
    context->close_project();
    EXPECT_EQ(2U, changes);
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

// A map saved from the project has its own copies of the layers.
TEST_F(loading, of_two_elements_with_one_uuid_the_first_is_found) {
    project_builder project;
    project.scene_2d(u"S").layer("rtr_lr2d", u"First", u"C:\\data\\a.tif");
    project.layer("vs_scene_layer_meta_id", u"Map", u"C:\\prj\\m._sn").save(source);
    project.model.scenes_2d.at(0)->at(0)->caption = u"Again";
    project.save_scene(u"C:\\prj\\m._sn");
    ASSERT_TRUE(load(source));
    EXPECT_EQ(u"First", (*context->units.find(project.id(u"First")))->caption());
}

} // namespace
} // namespace vs::project_resave
