// Loading a project: its tree, what a failure leaves, and that nothing of an earlier one stays.
#include <typeindex>

#include "containers/resave_layouts.h"
#include "containers/resave_scenes.h"
#include "containers/resave_tables.h"
#include "containers/resave_wells_data.h"
#include "framework/strings.h"
#include "services/resave_plugin_list.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using kind = vestra::shell::scripted_front_end::kind;

// A service of another bundle, with items that have no files.
class other_service final : public referent<resave_service_impl> {
public:
    void set_project(vs_prj* loaded) override { project = loaded; }
    void caption(string_visitor visitor) override { tell(visitor, u"Other"); }
    uint32_t item_count() override { return 7; }
    vs_prj* project = nullptr;
};

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
        EXPECT_TRUE(context->tree.empty() && context->units.empty());
        EXPECT_EQ(0, context->sizes.total_kb());
    }
};

TEST_F(loading, roots_stand_in_the_order_of_a_run_with_services_before_the_tables) {
    auto* const other = new other_service;
    services.emplace_back(resave_service(pointer_to<resave_service_impl>(*other)));
    project_builder()
        .sheet(vestra::correlations_meta_id, u"First", {})
        .sheet("plugin_scn_2d_report_collection", u"Report", {})
        .sheet(vestra::well_sheets_meta_id, u"Well", {})
        .sheet(vestra::correlations_meta_id, u"Second", {})
        .scene_2d(u"S")
        .layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif"))
        .table(u"T", u"C:\\data\\lost.dbf")
        .save(source);
    ASSERT_TRUE(load(source));
    const std::type_index expected[] = {typeid(Tvs_resave_scenes_2d),  typeid(Tvs_resave_scenes_3d),
                                        typeid(Tvs_resave_toss_data),  typeid(Tvs_resave_scns_layout),
                                        typeid(Tvs_resave_wells_data), typeid(Tvs_resave_wells_data),
                                        typeid(Tvs_resave_wells_data), typeid(resave_plugin_list),
                                        typeid(resave_plugin_list),    typeid(Tvs_resave_attrs_data)};
    ASSERT_EQ(std::size(expected), context->tree.size());
    for (size_t index = 0; index < std::size(expected); ++index) {
        const Tvs_resave_unit& root = *context->tree[index];
        EXPECT_EQ(expected[index], std::type_index(typeid(root))) << index;
    }
    EXPECT_EQ(u"Other", context->tree[8]->caption());
    EXPECT_EQ(context->project, other->project);
    EXPECT_EQ(3U + 1 + 1 + 7, context->total_units) << "sheets, layer, table, items of the service";
}

TEST_F(loading, a_project_that_cannot_be_read_leaves_nothing_and_is_told_once) {
    project_builder().scene_2d(u"S").save(source);
    const wide_string bad[] = {broken(), u"C:\\prj\\none._vp", u"C:\\prj", u"X:\\area._vp", u""};
    for (const wide_string& path : bad)
        for (const bool is_loaded : {false, true}) {
            ASSERT_TRUE(!is_loaded || load(source));
            EXPECT_FALSE(load(path));
            EXPECT_EQ(1U, changes);
            EXPECT_EQ(
                (std::vector<front::event>{{kind::wait, load_string(358)}, {kind::error, load_string(500)}}),
                told());
            EXPECT_EQ(0U, script.open_windows);
            expect_nothing_loaded();
        }
}

TEST_F(loading, a_second_project_releases_the_first_and_starts_afresh) {
    copy_sample();
    const wide_string scene = u"253ad0de-e325-5dd3-8153-ceac9a173086";
    ASSERT_TRUE(load(source));
    const size_t objects = vestra::living_objects(), units = context->units.size();
    const double kilobytes = context->sizes.total_kb();
    EXPECT_LT(60, kilobytes);
    for (int again = 0; again < 4; ++again) {
        context->units.at(scene)->set_selected(false);
        ASSERT_TRUE(load(context->placement.source_project_path));
        EXPECT_EQ(objects, vestra::living_objects());
        EXPECT_EQ(units, context->units.size());
        EXPECT_EQ(kilobytes, context->sizes.total_kb());
        EXPECT_TRUE(context->selection.is_selected(scene)) << "as everything is again";
        EXPECT_EQ((std::set<wide_string>{u"wfs_pnt_lr2d"}), context->report.unprocessed_types);
        EXPECT_EQ(1U, changes);
    }
    context->units.at(scene)->set_selected(false);
    context->close_project();
    EXPECT_EQ(2U, changes);
    expect_nothing_loaded();
    EXPECT_TRUE(context->selection.is_selected(scene));
    EXPECT_EQ(0U, vestra::living_objects());
    context->close_project();
    EXPECT_EQ(2U, changes);
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

TEST_F(loading, of_two_elements_with_one_uuid_the_first_is_found) {
    project_builder project;
    project.scene_2d(u"S")
        .layer("rtr_lr2d", u"First", u"C:\\data\\a.tif")
        .layer("vs_scene_layer_meta_id", u"Map", u"C:\\prj\\m._sn");
    project.save(source);
    vestra::scene scene(
        vestra::dimension::flat); // its own copy of the layer, as a map saved from here has it
    vestra::layer& again = scene.make_layer("rtr_lr2d");
    again.caption = u"Again";
    again.id = *vestra::uuid::parse(project.id(u"First"));
    ASSERT_FALSE(vestra::files::write_scene(u"C:\\prj\\m._sn", scene));
    ASSERT_TRUE(load(source));
    EXPECT_EQ(u"First", context->units.at(project.id(u"First"))->caption());
}

} // namespace
} // namespace vs::project_resave
