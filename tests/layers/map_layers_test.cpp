// Map layers, whose scene is resaved inside them.
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

namespace {

class map_layers : public layer_run {
protected:
    map_layers() {
        write(src(u"a.tif"));
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
    run();
    EXPECT_EQ(files(), (std::vector<std::string>{"L._lr", "m._sn", "rtr/a.tif", "solid._lrd"}));
    EXPECT_EQ(first_reference(u"m._sn"), out(u"rtr\\a.tif"));
    for (uint32_t scene = 0; scene < 2; ++scene)
        EXPECT_EQ(copy->scenes_2d.at(scene)->at(0)->file, out(u"m._sn"));
    EXPECT_EQ(copy->scenes_3d.at(0)->at(0)->file, out(u"m._sn"));
    EXPECT_EQ(problems, u"");
    EXPECT_EQ(script.total, 3U); // the rasters inside count, the map layers do not
}

TEST_F(map_layers, with_a_folder_for_each_scene_each_has_the_map_with_its_files) {
    add(scene_2d(), map_2d, src(u"m._sn"));
    vestra::scene& other = scene_2d();
    other.caption = u"T";
    add(other, map_2d, src(u"m._sn"));
    settings.structure_variant = folder_per_scene;
    run();
    EXPECT_EQ(files(),
              (std::vector<std::string>{"S/prj/a.tif", "S/prj/m._sn", "T/prj/a.tif", "T/prj/m._sn"}));
    EXPECT_EQ(first_reference(u"T\\prj\\m._sn"), out(u"T\\prj\\a.tif"));
}

TEST_F(map_layers, one_that_is_lost_or_does_not_load_is_lost_for_the_scene_but_ends_nothing) {
    write(src(u"bad._sn"), "<scene");
    for (const bool removes : {false, true}) {
        clear_run();
        vestra::scene& scene = scene_2d();
        for (const wide_view name : {u"gone._sn", u"bad._sn", u"m._sn"}) add(scene, map_2d, src(name));
        add(scene, map_2d, u"");
        settings.delete_lost_sources = removes;
        settings.write_log = true;
        run();
        EXPECT_EQ(problems, u"S: Lost files L\n");
        EXPECT_NE(read(out(u"new_log.txt")).find("Scene\r\n" + platform::to_utf8(src(u"bad._sn"))),
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
    add(scene, map_2d, src(u"m._sn"));
    add(scene, "rtr_lr2d", src(u"gone.tif")).caption = u"behind"; // saved from the last to the first
    run();
    EXPECT_EQ(problems, u"S: Lost files behind\ninside: Lost files inner\n");
}

TEST_F(map_layers, a_scene_file_that_leads_back_to_itself_ends_there) {
    for (const auto& [name, inner] : {std::pair(u"x._sn", u"Y._SN"), std::pair(u"y._sn", u"x._sn")}) {
        vestra::scene scene(vestra::dimension::flat);
        add(named(scene), map_2d, src(inner));
        add(scene, "rtr_lr2d", src(u"a.tif"));
        ASSERT_FALSE(vestra::files::write_scene(src(name), scene));
    }
    add(scene_2d(), map_2d, src(u"x._sn"));
    run();
    EXPECT_EQ(files(), (std::vector<std::string>{"Y._SN", "rtr/a.tif", "x._sn"}));
    EXPECT_EQ(first_reference(u"x._sn"), out(u"Y._SN"));
    EXPECT_EQ(first_reference(u"Y._SN"), src(u"x._sn")); // where the circle was cut
    EXPECT_EQ(problems, u"");
}

TEST_F(map_layers, what_is_not_selected_leaves_the_scene_inside_too) {
    deselected = {write_map(u"m._sn", u"a.tif")};
    add(scene_2d(), map_2d, src(u"m._sn"));
    run();
    EXPECT_EQ(files(), std::vector<std::string>{"m._sn"});
    EXPECT_EQ(first_reference(u"m._sn"), u"");
}

} // namespace vs::project_resave
