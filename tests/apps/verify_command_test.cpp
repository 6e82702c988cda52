// vestra-resave verify, and resave --verify: whether a project can be moved with all it needs.
#include <nlohmann/json.hpp>
#include <set>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

using nlohmann::json;
using std::string;

class verify_command : public command_run {
protected:
    // What is told of the project, each "reason: kind caption: path".
    std::set<string> astray(const string& project) {
        EXPECT_GE(1, command("verify '" + project + "' --json")) << err;
        std::set<string> found;
        const auto told = json::parse(out);
        EXPECT_EQ(project, told.at("project"));
        EXPECT_EQ(told.at("astray").empty() ? "stands alone" : "does not stand alone", told.at("outcome"));
        for (const auto& each : told.at("astray"))
            found.insert(each.at("reason").get<string>() + ": " + each.at("kind").get<string>() + " " +
                         each.at("caption").get<string>() + ": " + each.at("path").get<string>());
        return found;
    }
    static void save_scene(const wide_string& path, const vestra::scene& scene) {
        EXPECT_FALSE(vestra::files::write_scene(path, scene));
    }
};

// Every place that can hold a reference; most of them lead astray.
void add_all_places(project_builder& all) {
    all.scene_2d(u"S")
        .layer("rtr_lr2d", u"Inside", u"C:\\prj\\in.tif")
        .layer("rtr_lr2d", u"In other letters", u"c:/PRJ/sub\\..\\IN.tif")
        .layer("rtr_lr2d", u"Folder like ours", u"C:\\prj2\\out.tif")
        .layer("rtr_lr2d", u"Above", u"C:\\prj\\..\\prj2\\out.tif")
        .layer("rtr_lr2d", u"Gone", u"C:\\prj\\gone.tif")
        .layer("rtr_lr2d", u"Gone far", u"D:\\gone.tif")
        .layer("grid_cutline_lr2d", u"Cut", u"*C:\\prj2\\cut.tos")
        .layer("vector_lr2d", u"Connection", u"*host:1")
        .layer("wfs_pnt_lr2d", u"Link", u"https://maps.example.org")
        .layer("shp_pln_lr2d", u"No table", u"C:\\prj\\in.shp")
        .join(u"D:\\joined.dbf");
    all.layer("prf_lines_lr2d", u"Profile", u"C:\\prj\\in.tif");
    all.model.scenes_2d.at(0)->members().back()->source = u"C:\\prj\\lines.shp";
    all.layer("tos_grid_lr2d", u"Model", u"C:\\prj\\in.tif");
    vestra::tuple record;
    record.elements.resize(70);
    record.elements[9] = vestra::any(wide_string(u"..\\prj2\\base.tos"));
    record.elements[10] = vestra::any(wide_string(u"no file"));
    record.elements[39] = vestra::any(wide_string(u"in.tif"));
    all.model.scenes_2d.at(0)->members().back()->extras.set("BumpsSettings") = vestra::any(record);
    all.scene_3d(u"S3")
        .layer("map_lr3d", u"Map", u"C:\\prj\\maps\\map.scene")
        .layer("map_lr3d", u"Map outside", u"C:\\prj2\\far._sn")
        .layer("map_lr3d", u"Map of S", u"*" + all.id(u"S") + u"*");
    all.layout(u"Sheet").legend(u"Signs", {{"rtr_lr2d", u"Sign", u"C:\\prj\\sign.tif"}});
    all.page(u"Page", u"C:\\prj\\page.fmt");
    all.sheet("c_scn2d_correlation_collection2", u"Wells", u"D:\\wells.cor");
    all.table(u"T", u"C:\\prj\\t.dbf").join(u"C:\\prj\\in.tif").join(u"C:\\prj\\other.dbf");
    vestra::tos_data& tos = all.model.tos_tables.make();
    tos.id = vestra::uuid::random();
    tos.caption = u"TOS";
    tos.file = u"C:\\prj\\t.tos";
}

TEST_F(verify_command, names_every_reference_that_leads_astray_and_what_holds_it) {
    for (const wide_string path : {u"C:\\prj\\in.tif", u"C:\\prj\\in.shp", u"C:\\prj2\\out.tif",
                                   u"C:\\prj2\\cut.tos", u"C:\\prj\\sub\\broken._SC"})
        write(path);
    std::filesystem::create_directories(native("c") / "prj/maps");
    project_builder all, maps;
    add_all_places(all);
    all.save(source);
    maps.scene_2d(u"Shown")
        .layer("rtr_lr2d", u"On the map", u"C:\\prj2\\out.tif")
        .layer("vs_scene_layer_meta_id", u"Itself", u"C:\\prj\\maps\\map.scene");
    save_scene(u"C:\\prj\\maps\\map.scene", *maps.model.scenes_2d.at(0));
    maps.scene_2d(u"Far").layer("rtr_lr2d", u"Far away", u"C:\\prj2\\none.tif");
    save_scene(u"C:\\prj2\\far._sn", *maps.model.scenes_2d.at(1));
    maps.scene_3d(u"Written").layer("segy_lr3d", u"Line", u"C:\\prj\\sub\\line.sgy");
    save_scene(u"C:\\prj\\sub\\Written._sc", *maps.model.scenes_3d.at(0));
    EXPECT_FALSE(vestra::files::write_layer(u"C:\\prj\\sub\\Line._lrd", *maps.model.scenes_3d.at(0)->at(0)));

    const std::set<string> expected{"outside: layer Folder like ours: C:\\prj2\\out.tif",
                                    "outside: layer Above: C:\\prj\\..\\prj2\\out.tif",
                                    "missing: layer Gone: C:\\prj\\gone.tif",
                                    "both: layer Gone far: D:\\gone.tif",
                                    "outside: layer Cut: C:\\prj2\\cut.tos",
                                    "missing: layer No table: C:\\prj\\in.dbf",
                                    "both: joined table No table: D:\\joined.dbf",
                                    "missing: layer Profile: C:\\prj\\lines.shp",
                                    "both: model file Model: C:\\prj2\\base.tos",
                                    "outside: layer Map outside: C:\\prj2\\far._sn",
                                    "missing: layer Sign: C:\\prj\\sign.tif",
                                    "missing: page Page: C:\\prj\\page.fmt",
                                    "both: sheet Wells: D:\\wells.cor",
                                    "missing: table T: C:\\prj\\t.dbf",
                                    "missing: joined table T: C:\\prj\\other.dbf",
                                    "missing: table TOS: C:\\prj\\t.tos",
                                    "outside: layer On the map: C:\\prj2\\out.tif",
                                    "both: layer Far away: C:\\prj2\\none.tif",
                                    "missing: layer Line: C:\\prj\\sub\\line.sgy",
                                    "unreadable: file broken._SC: C:\\prj\\sub\\broken._SC"};
    command("verify 'C:\\prj\\area._vp'");
    EXPECT_NE(string::npos, out.find("outside and missing: sheet Wells: D:\\wells.cor\n")) << out;
    EXPECT_NE(string::npos, out.find("On the map: C:\\prj2\\out.tif, in C:\\prj\\maps\\map.scene\n")) << out;
    EXPECT_EQ(expected, astray("C:\\prj\\area._vp"));
    EXPECT_EQ(1, command("verify 'C:\\prj\\area._vp'"));
}

TEST_F(verify_command, ends_with_0_only_for_a_project_that_can_be_moved) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"R", write(u"C:\\prj\\r.tif")).save(source);
    const tree_state before = state_of(native("c"));
    EXPECT_EQ(0, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_EQ("stands alone: C:\\prj\\area._vp, 1 references, 0 astray\n", out);
    std::filesystem::rename(native("c") / "prj", native("c") / "moved");
    EXPECT_EQ(0, command("verify 'C:\\moved\\area._vp' --json"));
    std::filesystem::remove(native("c") / "moved/r.tif");
    EXPECT_EQ(1, command("verify 'C:\\moved\\area._vp' --quiet"));
    EXPECT_EQ(2, command("verify 'C:\\prj\\area._vp'"));
    EXPECT_TRUE(is_told("C:\\prj\\area._vp: there is no such file")) << err;
    EXPECT_EQ(2, command("verify"));
    EXPECT_EQ(1U, state_of(native("c") / "moved").size());
}

// A layer file is written over a copy that came to bear its name.
TEST_F(verify_command, of_a_resave_tells_of_a_copy_that_is_not_as_its_source) {
    project_builder().scene_2d(u"S").layer("rtr_lr2d", u"Rocks", write(u"C:\\prj\\Rocks._lr")).save(source);
    const string to =
        "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --structure from-project-folder --verify ";
    EXPECT_EQ(1, command(to)) << err;
    EXPECT_EQ("vestra-resave: unreadable: file Rocks._lr: N:\\out\\Rocks._lr\n",
              err.substr(err.find("vestra")))
        << "no layer file, though it bears the name of one";
    EXPECT_NE(string::npos, out.find("saved with problems: "));
    for (const string reason : {"size", "content"}) {
        remove_tree(u"N:\\out");
        EXPECT_EQ(1, command(to + "--layer-files --json")) << err;
        EXPECT_TRUE(
            is_told("not as its source (" + reason + "): N:\\out\\Rocks._lr, from C:\\prj\\Rocks._lr"));
        EXPECT_EQ(reason, json::parse(out).at("differing").at(0).at("reason"));
        write(u"C:\\prj\\Rocks._lr", string(read(u"N:\\out\\Rocks._lr").size(), 'x'));
    }
}

} // namespace
} // namespace vs::project_resave
