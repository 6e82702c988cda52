// Map layers, whose scene is resaved inside them.
#include "layers/layer_factory.h"
#include "reference_host/api/handles.h"
#include "tests/layers/layer_run.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {

namespace {

class map_layers : public layer_run {
protected:
    map_layers() {
        disk.write(u"src\\a.tif");
        write_map(u"m._sn", u"a.tif");
    }
    // Reference of the first layer of a scene file of the new project.
    wide_string first_reference(wide_view scene_file) {
        vestra::scene scene(vestra::dimension::flat);
        EXPECT_FALSE(vestra::files::read_scene(out(scene_file), scene));
        return scene.count() > 0 ? scene.at(0)->file : wide_string();
    }
};

constexpr const char* map_2d = "vs_scene_layer_meta_id";

} // namespace

TEST_F(map_layers, the_scene_inside_is_resaved_and_its_file_written_once) {
    settings.save_layer_files = true;
    for (int i = 0; i < 2; ++i) add(scene_2d(), map_2d, src(u"m._sn"));
    add(scene_3d(), "map_lr3d", src(u"m._sn")).caption = u"solid";
    resave();
    EXPECT_EQ(copied(), (names{u"L._lr", u"m._sn", u"rtr\\a.tif", u"solid._lrd"}));
    EXPECT_EQ(first_reference(u"m._sn"), out(u"rtr\\a.tif"));
    for (uint32_t scene = 0; scene < 2; ++scene)
        EXPECT_EQ(copy->scenes_2d.at(scene)->at(0)->file, out(u"m._sn"));
    EXPECT_EQ(copy->scenes_3d.at(0)->at(0)->file, out(u"m._sn"));
    EXPECT_EQ(problems, u"");
    EXPECT_EQ(front_end.total, 3U); // the rasters inside count, the map layers do not
}

TEST_F(map_layers, with_a_folder_for_each_scene_each_has_the_map_with_its_files) {
    add(scene_2d(), map_2d, src(u"m._sn"));
    vestra::scene& other = scene_2d();
    other.caption = u"T";
    add(other, map_2d, src(u"m._sn"));
    settings.structure_variant = folder_per_scene;
    resave();
    EXPECT_EQ(copied(), (names{u"S\\src\\a.tif", u"S\\src\\m._sn", u"T\\src\\a.tif", u"T\\src\\m._sn"}));
    EXPECT_EQ(first_reference(u"T\\src\\m._sn"), out(u"T\\src\\a.tif"));
}

TEST_F(map_layers, one_that_is_lost_or_does_not_load_is_lost_for_the_scene_but_ends_nothing) {
    disk.write(u"src\\bad._sn", "<scene");
    for (const bool removes : {false, true}) {
        clear_run();
        vestra::scene& scene = scene_2d();
        for (const wide_view name : {u"gone._sn", u"bad._sn", u"m._sn"}) add(scene, map_2d, src(name));
        add(scene, map_2d, u"");
        settings.delete_lost_sources = removes;
        settings.write_log = true;
        resave();
        EXPECT_EQ(problems, u"Lost files L\n");
        EXPECT_NE(disk.read(u"out\\new_log.txt").find("Scene\r\n" + platform::to_utf8(src(u"bad._sn"))),
                  std::string::npos);
        names references;
        for (const auto& layer : copy->scenes_2d.at(0)->members()) references.push_back(layer->file);
        EXPECT_EQ(references, removes ? (names{out(u"m._sn"), u""})
                                      : (names{src(u"gone._sn"), src(u"bad._sn"), out(u"m._sn"), u""}));
    }
}

TEST_F(map_layers, what_is_lost_behind_one_is_told_under_the_scene_inside) {
    vestra::scene inside(vestra::dimension::flat);
    add(inside, "rtr_lr2d", src(u"gone.tif")).caption = u"inner";
    inside.caption = u"inside";
    ASSERT_FALSE(vestra::files::write_scene(src(u"m._sn"), inside));
    vestra::scene& scene = scene_2d();
    add(scene, "rtr_lr2d", src(u"gone.tif")).caption = u"before"; // saved from the last to the first
    add(scene, map_2d, src(u"m._sn"));
    add(scene, "rtr_lr2d", src(u"gone.tif")).caption = u"behind";
    resave();
    EXPECT_EQ(titles, (names{u"S", u"inside"}));
    EXPECT_EQ(problems, u"Lost files behind\nLost files inner\nLost files before\n");
}

TEST_F(map_layers, a_scene_file_that_leads_back_to_itself_ends_there) {
    for (const auto& [name, inner] : {std::pair(u"x._sn", u"Y._SN"), std::pair(u"y._sn", u"x._sn")}) {
        vestra::scene scene(vestra::dimension::flat);
        add(named(scene), map_2d, src(inner));
        add(scene, "rtr_lr2d", src(u"a.tif"));
        ASSERT_FALSE(vestra::files::write_scene(src(name), scene));
    }
    add(scene_2d(), map_2d, src(u"x._sn"));
    resave();
    EXPECT_EQ(copied(), (names{u"Y._SN", u"rtr\\a.tif", u"x._sn"}));
    EXPECT_EQ(first_reference(u"x._sn"), out(u"Y._SN"));
    EXPECT_EQ(first_reference(u"Y._SN"), src(u"x._sn")); // where the circle was cut
    EXPECT_EQ(problems, u"");
}

TEST_F(map_layers, what_is_not_selected_leaves_the_scene_inside_too) {
    vestra::scene inside(vestra::dimension::flat);
    const wide_string id = add(named(inside), "rtr_lr2d", src(u"a.tif")).id.text();
    ASSERT_FALSE(vestra::files::write_scene(src(u"m._sn"), inside));
    add(scene_2d(), map_2d, src(u"m._sn"));
    deselected = {id};
    resave();
    EXPECT_EQ(copied(), (names{u"m._sn"}));
    EXPECT_EQ(first_reference(u"m._sn"), u"");
}

TEST_F(map_layers, only_saving_and_counting_go_into_the_scene_inside) {
    vestra::scene inside(vestra::dimension::flat);
    vestra::layer& raster = add(named(inside), "rtr_lr2d", src(u"A.TIF")); // its letter case differs
    add(inside, "prf_compound_lr2d", u"").members = names{raster.id.text()};
    ASSERT_FALSE(vestra::files::write_scene(src(u"m._sn"), inside));
    vestra::layer& layer = add(scene_2d(), map_2d, src(u"m._sn"));
    const vestra::shell::front_end_override in_force(front_end);
    project_context context(nullptr);
    const auto unit = make_layer_unit_2d(context, vestra::api::to_handle<vs_lr>(&layer));
    unit->build_once();
    ASSERT_TRUE(context.units.contains(raster.id.text()));
    uint32_t total = 0;
    unit->count_units(total);
    EXPECT_EQ(total, 2U) << "not the map layer itself";
    context.progress.total = 10;
    unit->skip_progress();
    bool differs = false;
    EXPECT_TRUE(unit->check_path_case(&differs));
    EXPECT_EQ(context.progress.current, 2U);
    EXPECT_FALSE(differs);
    unit->set_selected(false);
    EXPECT_TRUE(context.selection.is_selected(raster.id.text()));
    EXPECT_TRUE(unit->correct_selection());
    EXPECT_TRUE(front_end.events.empty());
}

TEST_F(map_layers, a_scene_file_that_cannot_be_written_is_named_all_the_same) {
    struct : forwarding_system {
        bool rename_over(const wide_string& from, const wide_string& to) override {
            return !to.ends_with(u"m._sn") && forwarding_system::rename_over(from, to);
        }
    } faults;
    for (int i = 0; i < 2; ++i) add(scene_2d(), map_2d, src(u"m._sn"));
    const platform::system_override in_force(faults);
    resave();
    EXPECT_EQ(copied(), (names{u"rtr\\a.tif"}));
    EXPECT_EQ(layer_2d().file, out(u"m._sn"));
    EXPECT_EQ(problems, u"");
}

} // namespace vs::project_resave
