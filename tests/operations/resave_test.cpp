// Whole runs on small projects: one choice of the user at a time.
#include <algorithm>

#include "framework/strings.h"
#include "tests/support/host_fixture.h"
#include "tests/support/project_builder.h"

namespace vs::project_resave {
namespace {

using std::string;
using strings = std::vector<string>;
using kind = vestra::shell::scripted_front_end::kind;

class resaving : public host_fixture {
protected:
    wide_string shape(const wide_string& path) {
        for (const wide_view extension : {u"shx", u"dbf"}) write(path_replace_extension(path, extension));
        return write(path);
    }
    // The new project, read again.
    vestra::project& made() {
        if (!made_) read_back(output, *(made_ = std::make_unique<vestra::project>()));
        return *made_;
    }

    std::unique_ptr<vestra::project> made_;
};

TEST_F(resaving, a_taken_name_is_numbered_or_asked_for_and_what_stood_there_stays) {
    const struct {
        bool renames, accepts;
        wide_string becomes;
        size_t asked;
    } rows[] = {{true, false, u"N:\\out\\shp\\a_(1).shp", 0},
                {false, false, u"N:\\out\\shp\\a_(1).shp", 1},
                {false, true, u"N:\\out\\typed\\b.shp", 1}};
    project_builder().scene_2d(u"S").layer("shp_pln_lr2d", u"L", shape(u"C:\\data\\a.shp")).save(source);
    for (const auto& row : rows) {
        remove_tree(u"N:\\out");
        write(u"N:\\out\\shp\\a.shp", "older");
        settings.rename_on_conflict = row.renames;
        on_dialog = [&](const dialog_view& shown) {
            enter_text(*find(shown, u"file_input"), u"N:\\out\\typed\\b.shp");
            return row.accepts ? 1 : 0;
        };
        dialogs.clear();
        made_.reset();
        load_and_resave();
        EXPECT_EQ(row.asked, dialogs.size());
        EXPECT_EQ(row.becomes, made().scenes_2d.at(0)->at(0)->file);
        EXPECT_EQ("older", read(u"N:\\out\\shp\\a.shp"));
        for (const wide_view extension : {u"shp", u"shx", u"dbf"})
            EXPECT_EQ("data", read(path_replace_extension(row.becomes, extension)));
        EXPECT_EQ(4U, files().size());
    }
}

TEST_F(resaving, lower_case_holds_for_folders_files_and_references) {
    settings.lower_case = true;
    settings.structure_variant = from_project_folder;
    write(u"C:\\prj\\Maps\\Relief.TIF");
    write(u"C:\\prj\\Maps\\Relief.TFw"); // letters of the source's extension, in the copy too
    write(u"C:\\prj\\Maps\\Relief_TIF.pj4");
    project_builder()
        .scene_2d(u"S")
        .layer("rtr_lr2d", u"R", u"C:\\prj\\Maps\\Relief.TIF")
        .layer("shp_pln_lr2d", u"L", shape(u"C:\\prj\\Maps\\Roads.SHP"))
        .save(source);
    load_and_resave();
    EXPECT_EQ((strings{"maps/relief.TFw", "maps/relief.tif", "maps/relief_tif.pj4", "maps/roads.dbf",
                       "maps/roads.shp", "maps/roads.shx"}),
              files());
    EXPECT_EQ(u"N:\\out\\maps\\relief.tif", made().scenes_2d.at(0)->at(0)->file);
}

TEST_F(resaving, what_is_not_selected_stays_out_with_its_files_and_its_groups) {
    project_builder builder;
    builder.scene_2d(u"Kept")
        .layer("shp_pln_lr2d", u"In", shape(u"C:\\data\\in.shp"))
        .layer("rtr_lr2d", u"Out", write(u"C:\\data\\out.tif"))
        .scene_2d(u"Gone")
        .layer("rtr_lr2d", u"With it", write(u"C:\\data\\with.tif"))
        .table(u"Kept table", write(u"C:\\data\\kept.dbf"))
        .table(u"Gone table", write(u"C:\\data\\gone.dbf"));
    vestra::scene& kept = *builder.model.scenes_2d.at(0);
    kept.make_groups().add_group(u"Roads").add_layer(*kept.at(0));
    kept.make_groups().add_group(u"Pictures").add_layer(*kept.at(1));
    builder.save(source);
    load();
    for (const wide_string caption : {u"Out", u"Gone", u"Gone table"})
        context->units.at(builder.id(caption))->set_selected(false);
    resave();
    EXPECT_EQ((strings{"dbf/kept.dbf", "shp/in.dbf", "shp/in.shp", "shp/in.shx"}), files());
    ASSERT_EQ(1U, made().scenes_2d.count());
    ASSERT_EQ(1U, made().scenes_2d.at(0)->count());
    EXPECT_EQ(u"In", made().scenes_2d.at(0)->at(0)->caption);
    ASSERT_EQ(1U, made().scenes_2d.at(0)->groups->count());
    EXPECT_EQ(u"Roads", made().scenes_2d.at(0)->groups->at(0)->caption);
    ASSERT_EQ(1U, made().tables.count());
    EXPECT_EQ(u"Kept table", made().tables.at(0)->caption);
}

TEST_F(resaving, lost_sources_are_told_and_leave_only_if_the_user_wants_so) {
    const wide_string lost = u"C:\\data\\lost.shp";
    project_builder()
        .scene_2d(u"S")
        .layer("shp_pln_lr2d", u"L", lost)
        .layer("wms_lr2d", u"W", u"https://maps.example.org")
        .table(u"T", u"C:\\data\\lost.dbf")
        .save(source);
    for (const bool removes : {false, true}) {
        settings.delete_lost_sources = removes;
        made_.reset();
        load_and_resave();
        const std::vector<wide_string> warning{
            u"Resave processing error:\n\nS:\nLost files L\n\nDBF tables:\nLost files T\n"};
        EXPECT_EQ(warning, script.texts(kind::warning));
        EXPECT_EQ(removes ? 1U : 2U, made().scenes_2d.at(0)->count());
        EXPECT_EQ(removes ? 0U : 1U, made().tables.count());
        EXPECT_EQ(removes ? u"https://maps.example.org" : lost, made().scenes_2d.at(0)->at(0)->file);
    }
}

TEST_F(resaving, scene_and_layer_files_refer_to_the_copies_beside_them) {
    const struct {
        uint32_t structure;
        wide_string folder, data;
    } rows[] = {{by_type, u"N:\\out\\", u"N:\\out\\shp\\a.shp"},
                {folder_per_scene, u"N:\\out\\Area _1_\\", u"N:\\out\\Area _1_\\data\\a.shp"}};
    settings.save_layer_files = settings.save_scene_files = true;
    project_builder()
        .scene_2d(u"Area _1_")
        .layer("shp_pln_lr2d", u"Roads: all", shape(u"C:\\data\\a.shp"))
        .scene_3d(u"Solid")
        .layer("shp_pln_lr3d", u"Faults", shape(u"C:\\data\\f.shp"))
        .save(source);
    for (const auto& row : rows) {
        remove_tree(u"N:\\out");
        settings.structure_variant = row.structure;
        made_.reset();
        load_and_resave();
        vestra::scene scene(vestra::dimension::flat);
        std::unique_ptr<vestra::layer> layer;
        EXPECT_FALSE(vestra::files::read_scene(row.folder + u"Area _1_._sn", scene));
        EXPECT_FALSE(vestra::files::read_layer(row.folder + u"Roads_ all._lr", scene.kind, layer));
        ASSERT_TRUE(layer && scene.count() == 1);
        for (const vestra::layer* each : {layer.get(), scene.at(0), made().scenes_2d.at(0)->at(0)}) {
            EXPECT_EQ(row.data, each->file);
            EXPECT_EQ(path_replace_extension(row.data, u"dbf"), each->data->file);
        }
        const string solid = row.structure == by_type ? "" : "Solid/";
        for (const char* name : {"Solid._sc", "Faults._lrd"})
            EXPECT_EQ(1, std::ranges::count(files(), solid + name));
    }
}

TEST_F(resaving, the_project_file_counts_in_the_common_top_folder_if_the_user_wants_so) {
    settings.structure_variant = from_common_top;
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"L", write(u"C:\\data\\maps\\a.tif")).save(source);
    for (const bool considered : {false, true}) {
        remove_tree(u"N:\\out");
        settings.consider_project_file = considered;
        load_and_resave();
        ASSERT_EQ(1U, files().size());
        EXPECT_EQ(considered, files()[0].ends_with("data/maps/a.tif"));
        EXPECT_TRUE(files()[0].ends_with("maps/a.tif")) << "the top folder itself is kept";
    }
}

TEST_F(resaving, with_a_folder_for_each_scene_nothing_else_is_in_the_new_project) {
    project_builder()
        .table(u"T", write(u"C:\\data\\t.dbf"))
        .sheet(vestra::well_sheets_meta_id, u"Well", write(u"C:\\data\\w.wsh"))
        .layout(u"Page")
        .layer("layout_image", u"Image", write(u"C:\\data\\i.png"))
        .save(source);
    settings.structure_variant = folder_per_scene;
    load_and_resave();
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(0U, made().tables.count() + made().layouts.count() + made().plugin_scenes.at(0)->count());
    EXPECT_EQ((std::vector<wide_string>{load_string(502)}), script.texts(kind::message));
}

TEST_F(resaving, the_source_opens_again_if_the_user_wants_to_go_on_and_nothing_does_else) {
    project_builder()
        .scene_2d(u"S")
        .layer("plugin_lr_2d_well_hole_2d_3", u"Well", write(u"C:\\data\\w.wel"))
        .save(source);
    settings.structure_variant = folder_per_scene;
    load();
    const uint32_t steps = context->total_units;
    script.answers = {answer::yes};
    resave();
    EXPECT_EQ(1U, changes);
    ASSERT_TRUE(context->project);
    EXPECT_EQ(steps, context->total_units) << "its wells are there again";
    EXPECT_EQ(source, context->placement.source_project_path);
    EXPECT_EQ((std::vector<wide_string>{load_string(358)}), script.texts(kind::wait));
    EXPECT_TRUE(files().empty()) << "wells do not go into folders of scenes";

    settings.structure_variant = by_type;
    resave();
    EXPECT_EQ((strings{"well/w.wel"}), files());
    EXPECT_EQ(1U, changes);
    EXPECT_FALSE(context->project);
    EXPECT_TRUE(context->tree.empty() && context->units.empty());
    EXPECT_EQ(0, context->sizes.total_kb());
    EXPECT_FALSE(context->resave_project(settings)) << "it has to be loaded first";
    EXPECT_EQ((std::vector<wide_string>{load_string(501)}), errors());
}

TEST_F(resaving, a_project_with_nothing_in_it_is_saved_all_the_same) {
    project_builder().save(source);
    remove_tree(u"N:\\out");
    std::filesystem::create_directories(native("n") / "out");
    load_and_resave();
    EXPECT_TRUE(files().empty());
    EXPECT_EQ(
        (std::vector<front::event>{{kind::message, load_string(502)}, {kind::yes_no, load_string(528)}}),
        script.events)
        << "no caption without a length";
    EXPECT_EQ(0U, made().scenes_2d.count());
}

TEST_F(resaving, the_log_tells_every_step_and_everything_that_was_not_plain) {
    project_builder()
        .scene_2d(u"Area")
        .layer("shp_pln_lr2d", u"Roads", shape(u"C:\\prj\\roads.shp"))
        .layer("rtr_lr2d", u"Lost", u"C:\\prj\\lost.tif")
        .layer("wfs_pnt_lr2d", u"Springs", u"https://maps.example.org")
        .save(source);
    write(u"N:\\out\\shp\\roads.shp", "older");
    settings.delete_lost_sources = settings.write_log = true;
    load_and_resave();
    string expected = // a bar is the end of a line
        "Begin correction select|End correction select|Begin find common directory|End find common "
        "directory|" +
        platform::to_utf8(load_string(632)) +
        "|wfs_pnt_lr2d \n|Project downloaded. \n|"
        "Begin 2D scenes|Begin Area|"
        "Begin Lost|No file |C:\\prj\\lost.tif| \n|    End Lost|"
        "Missing in original project layer 3d has been deleted from the new project| \n|"
        "Begin Roads|File |C:\\prj\\roads.shp| already exists and has been resave the name |"
        "N:\\out\\shp\\roads_(1).shp| \n|    End Roads|"
        "    End Area|    End 2D scenes|"
        "Begin 3D scenes|    End 3D scenes|"
        "Begin OAT tables|    End OAT tables|"
        "Begin Layouts|    End Layouts|"
        "Begin mapleg_plugin|Begin resave service |mapleg_plugin| \n|"
        "End resave service |mapleg_plugin| \n|    End mapleg_plugin|"
        "Begin DBF tables|    End DBF tables|"
        "Project saved. \n|";
    for (size_t at = 0; (at = expected.find('|')) != string::npos;) expected.replace(at, 1, "\r\n");
    EXPECT_EQ(expected, read(u"N:\\out\\new_log.txt"));
}

} // namespace
} // namespace vs::project_resave
