// Map layers, whose scene is resaved inside them, layers that refer to other elements of the project, and the
// rounds that add these to the selection.
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

constexpr const char* map_2d = "vs_scene_layer_meta_id";

class map_layers : public builder_run {
protected:
    map_layers() {
        builder.scene_2d(u"M").layer("rtr_lr2d", u"R", write(src(u"a.tif"))).save_scene(map);
        builder.clear();
    }
    const wide_string map = src(u"m._sn");
};

TEST_F(map_layers, the_scene_inside_is_resaved_and_its_file_written_once) {
    settings.save_layer_files = true;
    for (int i = 0; i < 2; ++i) builder.scene_2d(u"S").layer(map_2d, u"L", map);
    builder.scene_3d(u"S").layer("map_lr3d", u"solid", map);
    run();
    EXPECT_EQ("R._lr m._sn rtr/a.tif solid._lrd \nS: L=m._sn\nS: L=m._sn\nS: solid=m._sn\n", outcome());
    EXPECT_EQ("M: R=rtr\\a.tif\n", scene_outline(out(u"m._sn")));
    EXPECT_EQ(script.total, 3U); // the rasters inside count, the map layers do not
}

TEST_F(map_layers, with_a_folder_for_each_scene_each_has_the_map_with_its_files) {
    builder.scene_2d(u"S").layer(map_2d, u"L", map).scene_2d(u"T").layer(map_2d, u"L", map);
    settings.structure_variant = folder_per_scene;
    run();
    EXPECT_EQ("S/prj/a.tif S/prj/m._sn T/prj/a.tif T/prj/m._sn \nS: L=S\\prj\\m._sn\nT: L=T\\prj\\m._sn\n",
              outcome());
    EXPECT_EQ("M: R=T\\prj\\a.tif\n", scene_outline(out(u"T\\prj\\m._sn")));
}

TEST_F(map_layers, one_that_is_lost_or_does_not_load_does_not_end_the_run) {
    write(src(u"bad._sn"), "<scene");
    builder.scene_2d(u"S").layer(map_2d, u"L", src(u"gone._sn")).layer(map_2d, u"L", src(u"bad._sn"));
    builder.layer(map_2d, u"L", map).layer(map_2d, u"L");
    settings.write_log = true;
    for (const bool removes : {false, true}) {
        settings.delete_lost_sources = removes;
        run();
        const std::string lost = removes ? "" : " L=C:\\prj\\gone._sn L=C:\\prj\\bad._sn";
        EXPECT_EQ("m._sn new_log.txt rtr/a.tif \nS:" + lost + " L=m._sn L\n!M: Lost files L\n", outcome());
        EXPECT_NE(std::string::npos, read(out(u"new_log.txt")).find("Scene\r\nC:\\prj\\bad._sn"));
        clear_output();
    }
}

TEST_F(map_layers, what_its_scene_lost_is_reported_under_that_scene) {
    project_builder().scene_2d(u"inside").layer("rtr_lr2d", u"inner", src(u"gone.tif")).save_scene(map);
    builder.scene_2d(u"S").layer(map_2d, u"L", map);
    builder.layer("rtr_lr2d", u"behind", src(u"gone.tif")); // saved from the last to the first
    run();
    EXPECT_EQ((texts{u"S: Lost files behind\n", u"inside: Lost files inner\n"}), problems);
}

TEST_F(map_layers, a_scene_file_that_refers_to_itself_ends_there) {
    for (const auto& [name, inner] : {std::pair(u"x._sn", u"Y._SN"), std::pair(u"y._sn", u"x._sn")}) {
        builder.scene_2d(name).layer(map_2d, u"L", src(inner)).layer("rtr_lr2d", u"R", src(u"a.tif"));
        builder.save_scene(src(name));
        builder.clear();
    }
    builder.scene_2d(u"S").layer(map_2d, u"L", src(u"x._sn"));
    run();
    EXPECT_EQ("Y._SN rtr/a.tif x._sn \nS: L=x._sn\n", outcome());
    EXPECT_EQ("x._sn: L=Y._SN R=rtr\\a.tif\n", scene_outline(out(u"x._sn")));
    EXPECT_EQ("y._sn: L=C:\\prj\\x._sn R=rtr\\a.tif\n", scene_outline(out(u"Y._SN"))) << "cut there";
}

TEST_F(map_layers, what_is_not_selected_leaves_the_scene_inside_too) {
    builder.scene_2d(u"S").layer(map_2d, u"L", map);
    unticked = {u"R"};
    run();
    EXPECT_EQ("m._sn \nS: L=m._sn\n", outcome());
    EXPECT_EQ("M:\n", scene_outline(out(u"m._sn")));
}

using layer_references = builder_run;

TEST_F(layer_references, a_link_is_the_uuid_as_the_host_writes_it_between_any_stars) {
    for (const auto& [before, behind, is_found] :
         {std::tuple(u"*", u"*", true), {u"", u"", true}, {u"***", u"*", true}, {u"*{", u"}*", false}}) {
        clear();
        const wide_string link = before + builder.id(u"linked") + behind;
        left_out(u"linked").scene_3d(u"S").layer("map_lr3d", u"L", link);
        script.answers = {answer::yes};
        settings.delete_lost_sources = true;
        run();
        EXPECT_EQ((is_found ? "\nlinked:\nS: L=" : "\nS: L=") + platform::to_utf8(link) + "\n", outcome());
        EXPECT_EQ(is_found ? 1U : 0U, questions());
    }
}

TEST_F(layer_references, a_scene_with_some_of_its_layers_counts_as_not_selected) {
    builder.scene_2d(u"S").layer("rtr_lr2d", u"R", write(src(u"a.tif")));
    builder.scene_3d(u"Solid").layer("map_lr3d", u"L", u"*" + builder.id(u"S") + u"*");
    unticked = {u"R"};
    script.answers = {answer::yes};
    run();
    EXPECT_EQ(std::vector<std::string>{"rtr/a.tif"}, files());
}

class rounds : public builder_run {
protected:
    // Resaves with this answer to the question of what to add. Returns the number of scenes in the new
    // project.
    uint32_t scenes_with(answer given) {
        script.answers = {given, answer::no};
        run();
        return copy->scenes_2d.count();
    }
};

TEST_F(rounds, follow_references_for_twelve_rounds_if_the_user_agrees) {
    const struct {
        uint32_t length;
        answer given;
        uint32_t saved;
        bool exceeded;
    } rows[] = {{1, answer::yes, 1, false},   {2, answer::yes, 2, false},  {5, answer::no, 1, false},
                {11, answer::yes, 11, false}, {12, answer::yes, 12, true}, {20, answer::yes, 13, true}};
    for (const auto& row : rows) {
        SCOPED_TRACE(row.length);
        builder.clear(); // each scene pulls in the one before it, so that one round adds one scene
        unticked.clear();
        for (uint32_t index = 0; index < row.length; ++index) {
            const wide_string caption = decimal(index);
            builder.scene_2d(caption);
            if (index > 0) builder.compound(u"C" + caption, {unticked.back()});
            unticked.push_back(caption);
        }
        unticked.pop_back(); // only the last one is selected
        EXPECT_EQ(row.saved, scenes_with(row.given));
        EXPECT_EQ(row.length > 1 ? 1U : 0U, questions());
        EXPECT_EQ(row.exceeded, context->report.depth_exceeded());
    }
}

TEST_F(rounds, a_frame_brings_the_scene_it_shows_with_its_layers) {
    builder.scene_2d(u"Shown").layer("rtr_lr2d", u"R", write(u"C:\\data\\r.tif")).layout(u"Sheet");
    builder.frame(u"Frame", u"Shown").frame(u"Another", u"Shown").frame(u"Empty", u"gone");
    const struct {
        texts left_out;
        answer given;
        uint32_t scenes;
        size_t asked, files;
    } rows[] = {{{u"Shown"}, answer::no, 0, 1, 0},
                {{u"Shown"}, answer::yes, 1, 1, 1},
                {{u"R"}, answer::no, 1, 1, 0}, // the frame checks each layer separately
                {{u"R"}, answer::yes, 1, 1, 1},
                {{u"Shown", u"Sheet"}, answer::yes, 0, 0, 0}}; // a deselected layout adds nothing
    for (const auto& row : rows) {
        remove_tree(u"N:\\out\\rtr");
        unticked = row.left_out;
        EXPECT_EQ(row.scenes, scenes_with(row.given));
        EXPECT_EQ(row.asked, questions());
        EXPECT_EQ(0U, script.asked_with_windows) << "the progress hides the question";
        EXPECT_TRUE(!row.asked || script.asked_at_poll < script.polls) << "no stop button after the question";
        EXPECT_EQ(row.files, files().size());
    }
}

} // namespace
} // namespace vs::project_resave
