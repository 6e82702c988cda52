// Whole runs on small projects: one choice of the user at a time, and edge cases.
#include "tests/support/builder_run.h"

namespace vs::project_resave {
namespace {

using std::string;
class resaving : public builder_run {
protected:
    wide_string shape(const wide_string& path) {
        for (const wide_view extension : {u"shx", u"dbf"}) write(path_replace_extension(path, extension));
        return write(path);
    }
};

TEST_F(resaving, a_taken_name_is_numbered_or_asked_for_and_the_old_file_kept) {
    const struct {
        bool renames, accepts;
        string becomes;
        size_t asked;
    } rows[] = {
        {true, false, "shp\\a_(1)", 0}, {false, false, "shp\\a_(1)", 1}, {false, true, "typed\\b", 1}};
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"L", shape(u"C:\\data\\a.shp")).save(source);
    for (const wide_string companion : {u"a.cpg", u"a_shp.pj4"}) write(u"C:\\data\\" + companion);
    for (const auto& row : rows) {
        remove_tree(u"N:\\out");
        write(u"N:\\out\\shp\\a.shp", "older");
        settings.rename_on_conflict = row.renames;
        on_dialog = [&](const dialog_view& shown) {
            enter_text(*find(shown, u"file_input"), u"N:\\out\\typed\\b.shp");
            return row.accepts ? 1 : 0;
        };
        dialogs.clear();
        load_and_resave();
        EXPECT_EQ(row.asked, dialogs.size());
        EXPECT_EQ("S: L=" + row.becomes + ".shp+" + row.becomes + ".dbf\n", outline());
        EXPECT_EQ("older", read(u"N:\\out\\shp\\a.shp"));
        for (const wide_view extension : {u".shp", u".shx", u".dbf", u".cpg", u"_shp.pj4"})
            EXPECT_EQ("data", read(u"N:\\out\\" + platform::from_utf8(row.becomes) + wide_string(extension)));
        EXPECT_EQ(6U, files().size());
    }
}

// Kept as users know it: every element removed as lost is a 3D layer in the log.
TEST_F(resaving, each_option_decides_copies_names_and_log) {
    write(u"C:\\prj\\Maps\\Relief.TIF");
    write(u"C:\\prj\\Maps\\Relief.TFw"); // letters of the source's extension, in the copy too
    write(u"C:\\prj\\Maps\\Relief_TIF.pj4");
    builder.scene_2d(u"S").layer("shp_pln_lr2d", u"Roads", shape(u"C:\\prj\\Maps\\Roads.SHP"));
    builder.layer("rtr_lr2d", u"Relief", u"C:\\prj\\Maps\\Relief.TIF");
    builder.layer("rtr_lr2d", u"Lost", u"C:\\gone.tif").layer("wms_lr2d", u"Link", u"https://x");
    builder.layer("wfs_pnt_lr2d", u"Springs", u"https://x").scene_3d(u"Solid");
    builder.layer("segy_lr3d", u"Lost line", u"C:\\gone.sgy");
    builder.layer("segy_lr3d", u"Line", write(u"C:\\prj\\l.sgy")).table(u"T", write(u"C:\\data\\t.dbf"));
    builder.table(u"Gone", u"C:\\gone.dbf").sheet(vestra::correlations_meta_id, u"First", {});
    builder.sheet("plugin_scn_2d_report_collection", u"Report", {});
    builder.sheet(vestra::well_sheets_meta_id, u"Well", write(u"C:\\data\\w.wsh")).layout(u"Page");
    builder.layer("layout_image", u"Image", write(u"C:\\data\\i.png"));
    for (vestra::scene* scene : {builder.model.scenes_2d.at(0), builder.model.scenes_3d.at(0)})
        for (const auto& layer : scene->members())
            scene->make_groups().add_group(layer->caption).add_layer(*layer);
    builder.save(source);
    const struct {
        resave_settings settings;
        texts deselected;
    } rows[] = {
        {{}, {}},
        {{.structure_variant = from_project_folder, .delete_lost_sources = true, .lower_case = true}, {}},
        {{.structure_variant = folder_per_scene}, {}}, // of which nothing else is in the new project
        // Empty groups are removed only with an unchecked layer of a 2D scene.
        {{.delete_lost_sources = true, .write_log = true}, {u"Relief", u"Line", u"T"}},
    };
    string all;
    for (const auto& row : rows) {
        remove_tree(u"N:\\out");
        if (row.settings.write_log) write(u"N:\\out\\shp\\Roads.shp", "older");
        settings = row.settings;
        load();
        for (const wide_string& caption : row.deselected)
            (*context->units.find(builder.id(caption)))->set_selected(false);
        resave();
        all += outcome() + '\n' + read(u"N:\\out\\new_log.txt");
    }
    EXPECT_EQ("", first_difference(committed("tests/operations/expected/choices.txt"), all));
}

TEST_F(resaving, scene_and_layer_files_refer_to_the_copies_beside_them) {
    settings.save_layer_files = settings.save_scene_files = true;
    builder.scene_2d(u"Area _1_").layer("shp_pln_lr2d", u"Roads: all", shape(u"C:\\data\\a.shp"));
    builder.scene_3d(u"Solid").layer("shp_pln_lr3d", u"Faults", shape(u"C:\\data\\f.shp")).save(source);
    for (const bool is_by_type : {true, false}) {
        remove_tree(u"N:\\out");
        settings.structure_variant = is_by_type ? by_type : folder_per_scene;
        load_and_resave();
        const wide_string folder = is_by_type ? u"N:\\out\\" : u"N:\\out\\Area _1_\\";
        const string data = is_by_type ? "shp\\a" : "Area _1_\\data\\a";
        EXPECT_EQ("Area _1_: Roads: all=" + data + ".shp+" + data + ".dbf\n",
                  scene_outline(folder + u"Area _1_._sn"));
        std::unique_ptr<vestra::layer> layer;
        EXPECT_FALSE(vestra::files::read_layer(folder + u"Roads_ all._lr", vestra::dimension::flat, layer));
        EXPECT_EQ(u"N:\\out\\" + platform::from_utf8(data) + u".shp", layer->file);
        for (const string name : {"Solid._sc", "Faults._lrd"})
            EXPECT_EQ(1, std::ranges::count(files(), (is_by_type ? "" : "Solid/") + name));
    }
}

TEST_F(resaving, the_source_opens_again_only_if_the_user_wants_to_continue) {
    builder.scene_2d(u"S").layer("plugin_lr_2d_well_hole_2d_3", u"Well", write(u"C:\\data\\w.wel"));
    builder.save(source);
    settings.structure_variant = folder_per_scene;
    load();
    script.answers = {answer::yes};
    resave();
    EXPECT_EQ(1U, changes);
    ASSERT_TRUE(context->project);
    EXPECT_EQ((texts{load_string(text::project_opens)}), script.texts(kind::wait));
    EXPECT_EQ("\nS: Well=C:\\data\\w.wel\n", outcome()) << "wells do not go into folders of scenes";

    settings.structure_variant = by_type;
    resave();
    EXPECT_EQ("well/w.wel \nS: Well=well\\w.wel\n", outcome()) << "the wells are there again";
    EXPECT_EQ(1U, changes);
    EXPECT_TRUE(!context->project && context->tree.empty() && context->units.rows().empty());
    EXPECT_EQ(0, context->sizes.total_kb());
}

// The project is saved after the second one.
TEST_F(resaving, joins_come_back_with_their_tables_or_stay_on_the_source) {
    const wide_string joined = write(u"C:\\data\\joined.dbf"), file = write(u"C:\\data\\t.dbf");
    const wide_string placed = write(u"C:\\data\\placed.dbf");
    write(u"C:\\data\\joined.cpg");
    builder.table(u"First", file).join(joined).table(u"Second", file).join(joined);
    builder.join(u"C:\\data\\lost.dbf").join(placed).table(u"Placed", placed).save(source);
    load_and_resave();
    EXPECT_EQ("dbf/joined.cpg dbf/joined.dbf dbf/placed.dbf dbf/t.dbf \n"
              "First=dbf\\t.dbf>C:\\data\\joined.dbf\nSecond=dbf\\t.dbf>dbf\\joined.dbf>dbf\\placed.dbf\n"
              "Placed=dbf\\placed.dbf\n!DBF tables: Lost files Join file\n",
              outcome());
    read_back(output, *(copy = std::make_unique<vestra::project>()));
    EXPECT_EQ(2, copy->tables.at(1)->joins.at(1).base_field);
}

// The last dot in the name of a folder is treated as that of an extension.
TEST_F(resaving, of_scenes_with_one_caption_the_last_gets_the_plain_name) {
    for (const wide_string place : {u"1", u"2", u"3"})
        builder.scene_2d(u" A.b ").layer("rtr_lr2d", u"L", write(u"C:\\data\\" + place + u"\\r.tif"));
    builder.save(source);
    load_and_resave();
    EXPECT_EQ(" A.b : L=rtr\\r_(2).tif\n A.b : L=rtr\\r_(1).tif\n A.b : L=rtr\\r.tif\n", outline());
    settings.structure_variant = folder_per_scene;
    load_and_resave();
    EXPECT_EQ(" A.b : L=A_2.b\\1\\r.tif\n A.b : L=A_1.b\\2\\r.tif\n A.b : L=A.b\\3\\r.tif\n", outline());
}

} // namespace
} // namespace vs::project_resave
