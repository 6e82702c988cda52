// Every kind of layer, resaved from real files.
#include "tests/support/builder_run.h"
#include "tests/support/faulty_system.h"

namespace vs::project_resave {

namespace {

struct kind_row {
    const char* type;
    wide_view files; // of the project, separated by spaces, like all lists here
    wide_view reference;
    wide_view folder; // of the type; empty if the layer has no file that could be lost
    wide_view copied;
    wide_view layer_file = {}; // extension
    const char* meta_id = nullptr;
};

const kind_row kinds[] = {
    {"shp_pnt_lr2d", u"r.shp r.shx r.dbf r.cpg r_shp.pj4 r.txt", u"r.shp", u"shp",
     u"r.shp r.shx r.dbf r.cpg r_shp.pj4", u"._lr"},
    {"shp_pgn_lr3d", u"r.shp r.shx r.dbf", u"r.shp", u"shp", u"r.shp r.shx r.dbf",
     u"._lrd"}, // names no table
    {"rtr_lr2d", u"a.tif a.tif.ovr a.tfw a_tif.pj4", u"a.tif", u"rtr", u"a.tif a.tif.ovr a.tfw a_tif.pj4",
     u"._lr"},
    {"rtr_lr2d", u"a.x a_x.pj4", u"a.x", u"rtr", u"a.x a_x.pj4",
     u"._lr"}, // no world file can be named after it
    {"tld_lr2d", u"a.tld a_tld.pj4 a.ovr", u"a.tld", u"tld", u"a.tld a_tld.pj4", u"._lr"},
    {"wms_lr2d", u"", u"https://maps.example/wms", u"", u""},
    {"grid_lr2d", u"g.sgy g_sgy.pj4", u"g.sgy", u"sgy", u"g.sgy g_sgy.pj4"},
    {"segy_lr3d", u"g.SGY", u"g.SGY", u"grid", u"g.SGY"},
    {"segy_lr3d", u"g.segy", u"g.segy", u"sgy", u"g.segy"},
    {"segy_lr3d", u"g.sec", u"g.sec", u"sgy", u"g.sec"},
    {"grid_lr2d", u"g\\a.val g\\b\\c.val", u"g", u"grid", u"g\\a.val g\\b\\c.val"},
    {"grid_lr2d", u"g.sgy\\a.val", u"g.sgy", u"sgy", u"g.sgy\\a.val"}, // the name alone decides
    {"vector_lr2d", u"v.abc v.ind v_abc.pj4", u"v.abc", u"vector", u"v.abc v.ind v_abc.pj4"},
    {"vector_polygon_lr2d", u"v\\a.mif", u"v", u"vector", u"v\\a.mif"},
    {"vector_point_lr2d", u"", u"*PG:host=db", u"", u""},
    {"tos_2crd_lr2d", u"t.tos t.tod t_tos.pj4", u"t.tos", u"tos", u"t.tos t.tod", u"._lr"},
    {"tos_surf_lr3d", u"t.tos t.tod", u"t.tos", u"tos", u"t.tos t.tod", u"._lrd"},
    {"shp_pln_lr2d", u"t.tos t.tod", u"*t.tos", u"tos", u"t.tos t.tod", u"._lr", "grid_cutline_lr2d"},
    {"any", u"n.grf n_grf.pj4", u"n.grf", u"graphics", u"n.grf n_grf.pj4", u"", "graph_lr2d"},
    {"plugin_lr_2d_well_profil_2", u"w.wel w\\log.las", u"w.wel", u"well", u"w.wel w\\log.las", u"._lr"},
    {"plugin_lr_3d_wells_2", u"w.wel", u"w.wel", u"well", u"w.wel", u"._lrd"},
    {"map_lr3d", u"", u"*6f0c0000-0000-4000-8000-000000000001*", u"", u""},
    {"prf_lines_lr2d", u"p.shp", u"C:\\elsewhere\\p.shp", u"", u""},
    {"prf_compound_lr2d", u"", u"C:\\elsewhere\\c", u"", u""},
};

class layer_kinds : public builder_run {
protected:
    // Returns the reference of the row's layer when its file is in this folder.
    static wide_string reference(const kind_row& row, const wide_string& folder) {
        const bool marked = row.reference.starts_with(u'*');
        if (row.folder.empty()) return wide_string(row.reference);
        return (marked ? u"*" : u"") + folder + wide_string(row.reference.substr(marked ? 1 : 0));
    }
    static wide_string new_reference(const kind_row& row) { return reference(row, out(row.folder) + u"\\"); }

    // Runs a project with one layer of this kind, with or without its files.
    void run(const kind_row& row, const resave_settings& wanted, bool has_files = true) {
        clear();
        settings = wanted;
        for (const wide_string& name : path_split(has_files ? row.files : u"", u" ", true))
            write(src(name), name == u"t.tos" ? "TOS 1\nproperty X\nmember t.tod\n" : "content");
        const std::string_view type = row.type;
        auto& begun = type.find("3d") != type.npos ? builder.scene_3d(u"S") : builder.scene_2d(u"S");
        vestra::layer& layer = begun.layer(row.type, u"a:b", reference(row, src(u""))).last();
        if (row.meta_id) layer.meta_id = row.meta_id;
        if (type != "shp_pnt_lr2d") layer.data.reset();
        builder_run::run();
        const auto& scenes = copy->scenes_2d.count() > 0 ? copy->scenes_2d : copy->scenes_3d;
        found = scenes.at(0)->count() > 0 ? scenes.at(0)->at(0)->file : u"no layer";
    }
    wide_string found; // that of the layer in the new project
};

} // namespace

TEST_F(layer_kinds, files_go_to_the_folder_of_their_type_and_layers_refer_there) {
    for (const kind_row& row : kinds) {
        run(row, {.save_layer_files = true});
        std::vector<std::string> expected;
        for (const wide_string& name : path_split(row.copied, u" ", true))
            expected.push_back(platform::to_utf8(wide_string(row.folder) + u"/" + name));
        if (!row.layer_file.empty()) expected.push_back("a_b" + platform::to_utf8(row.layer_file));
        for (std::string& name : expected) std::ranges::replace(name, '\\', '/');
        std::ranges::sort(expected);
        EXPECT_EQ(expected, files()) << row.type;
        EXPECT_EQ(new_reference(row), found) << row.type;
        EXPECT_EQ(texts{}, problems) << row.type;
        EXPECT_TRUE(context->report.unprocessed_types().empty()) << row.type;
    }
}

TEST_F(layer_kinds, a_lost_source_is_reported_and_its_layer_stays_by_default) {
    for (const kind_row& row : kinds) {
        for (const bool removes : {false, true}) {
            run(row, {.delete_lost_sources = removes, .save_layer_files = true}, false);
            const bool is_lost = !row.folder.empty();
            EXPECT_EQ(is_lost ? texts{u"S: Lost files a:b\n"} : texts{}, problems) << row.type;
            EXPECT_EQ(std::vector<std::string>{}, files()) << row.type;
            EXPECT_EQ(is_lost && removes ? u"no layer" : reference(row, src(u"")), found) << row.type;
        }
    }
}

TEST_F(layer_kinds, a_failed_copy_is_reported_and_the_layer_has_the_new_path) {
    faulty_system faults({"copy"}, 1, SIZE_MAX);
    const platform::system_override in_force(faults);
    for (const kind_row& row : kinds) {
        run(row, {});
        const wide_string told = u"S: Copy error " + path_file_name(reference(row, src(u"")));
        EXPECT_EQ(!row.folder.empty(), !problems.empty() && problems[0].starts_with(told)) << row.type;
        EXPECT_EQ(std::vector<std::string>{}, files()) << row.type;
        EXPECT_EQ(new_reference(row), found) << row.type;
    }
}

TEST_F(layer_kinds, an_unknown_type_is_reported_once_and_its_layer_unchanged) {
    builder.scene_2d(u"S");
    for (const char* type : {"wfs_pnt_lr2d", "wfs_pnt_lr2d", "RTR_LR2D", "segy_lr3d"})
        builder.layer(type, u"L", write(src(u"a.tif")));
    unticked = {u"L"}; // a deselected layer is not removed either
    builder_run::run();
    EXPECT_EQ((std::set<wide_string>{u"RTR_LR2D", u"segy_lr3d", u"wfs_pnt_lr2d"}),
              context->report.unprocessed_types());
    const std::string kept = " L=C:\\prj\\a.tif";
    EXPECT_EQ("\nS:" + kept + kept + kept + kept + "\n", outcome());
}

} // namespace vs::project_resave
