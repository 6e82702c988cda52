// Every kind of layer, resaved from real files.
#include "tests/layers/layer_run.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {

namespace {

struct kind_row {
    const char* type;
    wide_view files; // of the project, parted by blanks, as all lists here
    wide_view reference;
    wide_view folder; // of the type; empty if the layer has no file that could be lost
    wide_view copied;
    wide_view layer_file = {}; // extension
    const char* meta_id = nullptr;
};

const kind_row kinds[] = {
    {"shp_pnt_lr2d", u"r.shp r.shx r.dbf r.cpg r_shp.pj4 r.txt", u"r.shp", u"shp",
     u"r.shp r.shx r.dbf r.cpg r_shp.pj4", u"._lr"},
    {"shp_pgn_lr3d", u"r.shp r.shx r.dbf", u"r.shp", u"shp", u"r.shp r.shx", u"._lrd"}, // has no table
    {"rtr_lr2d", u"a.tif a.tif.ovr a.tfw a_tif.pj4", u"a.tif", u"rtr", u"a.tif a.tif.ovr a.tfw a_tif.pj4",
     u"._lr"},
    {"rtr_lr2d", u"a.x a_x.pj4", u"a.x", u"rtr", u"a.x", u"._lr"}, // no world file can be named after it
    {"tld_lr2d", u"a.tld a_tld.pj4 a.ovr", u"a.tld", u"tld", u"a.tld a_tld.pj4", u"._lr"},
    {"wms_lr2d", u"", u"https://maps.example/wms", u"", u""},
    {"grid_lr2d", u"g.sgy g_sgy.pj4", u"g.sgy", u"sgy", u"g.sgy g_sgy.pj4"},
    {"segy_lr3d", u"g.SGY", u"g.SGY", u"grid", u"g.SGY"},
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

class layer_kinds : public layer_run {
protected:
    // The reference of the row's layer while its file lies in this folder.
    static wide_string reference(const kind_row& row, const wide_string& folder) {
        const bool marked = row.reference.starts_with(u'*');
        if (row.folder.empty()) return wide_string(row.reference);
        return (marked ? u"*" : u"") + folder + wide_string(row.reference.substr(marked ? 1 : 0));
    }
    static wide_string old_reference(const kind_row& row) { return reference(row, src(u"")); }
    static wide_string new_reference(const kind_row& row) { return reference(row, out(row.folder) + u"\\"); }
    static names listed(wide_view list) { return path_split(list, u" ", true); }

    // A project of one layer of this kind, with its files or without.
    void begin(const kind_row& row, bool has_files = true) {
        clear();
        settings.save_layer_files = true;
        for (const wide_string& name : listed(has_files ? row.files : u""))
            write(src(name), name == u"t.tos" ? "TOS 1\nproperty X\nmember t.tod\n" : "content");
        const std::string_view type = row.type;
        const bool is_3d = type.find("3d") != std::string_view::npos;
        vestra::layer& layer = add(is_3d ? scene_3d() : scene_2d(), row.type, old_reference(row));
        layer.caption = u"a:b";
        if (row.meta_id) layer.meta_id = row.meta_id;
        if (type != "shp_pnt_lr2d") return;
        layer.data = std::make_unique<vestra::attr_data>();
        layer.data->id = vestra::uuid::random();
    }
    // That layer in the new project; null if it left.
    vestra::layer* result() {
        return copy->scenes_2d.count() > 0 ? copy->scenes_2d.at(0)->at(0) : copy->scenes_3d.at(0)->at(0);
    }
};

} // namespace

TEST_F(layer_kinds, files_land_in_the_folder_of_their_type_and_the_layer_names_them_there) {
    for (const kind_row& row : kinds) {
        SCOPED_TRACE(testing::Message() << row.type << " on " << platform::to_utf8(row.reference));
        begin(row);
        run();
        std::vector<std::string> expected;
        for (const wide_string& name : listed(row.copied))
            expected.push_back(platform::to_utf8(wide_string(row.folder) + u"/" + name));
        if (!row.layer_file.empty()) expected.push_back("a_b" + platform::to_utf8(row.layer_file));
        for (std::string& name : expected) std::ranges::replace(name, '\\', '/');
        std::ranges::sort(expected);
        EXPECT_EQ(files(), expected);
        EXPECT_EQ(result()->file, new_reference(row));
        EXPECT_EQ(problems, row.reference == u"a.x" ? u"S: Copy error a.x\n" : u"");
        EXPECT_TRUE(context->report.unprocessed_types.empty());
    }
}

TEST_F(layer_kinds, a_lost_source_is_reported_and_the_layer_stays_unless_it_is_to_go) {
    for (const kind_row& row : kinds) {
        for (const bool removes : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.type << ' ' << removes);
            begin(row, false);
            settings.delete_lost_sources = removes;
            run();
            EXPECT_EQ(problems, !row.folder.empty() ? u"S: Lost files a:b\n" : u"");
            EXPECT_TRUE(files().empty());
            EXPECT_EQ(result() == nullptr, !row.folder.empty() && removes);
            EXPECT_TRUE(!result() || result()->file == old_reference(row));
        }
    }
}

TEST_F(layer_kinds, after_a_failed_copy_the_user_is_told_and_the_layer_names_the_new_place) {
    struct : forwarding_system {
        bool copy_file(const wide_string&, const wide_string&, bool) override { return false; }
    } faults;
    const platform::system_override in_force(faults);
    for (const kind_row& row : kinds) {
        SCOPED_TRACE(row.type);
        begin(row);
        settings.save_layer_files = false;
        run();
        EXPECT_EQ(problems.starts_with(u"S: Copy error " + path_file_name(old_reference(row))),
                  !row.folder.empty());
        EXPECT_TRUE(files().empty());
        EXPECT_EQ(result()->file, new_reference(row));
    }
}

TEST_F(layer_kinds, a_type_that_nothing_resaves_is_told_once_and_its_layer_keeps_its_old_reference) {
    vestra::scene& flat = scene_2d();
    for (const char* type : {"wfs_pnt_lr2d", "wfs_pnt_lr2d", "RTR_LR2D", "segy_lr3d"})
        add(flat, type, write(src(u"a.tif")));
    deselected = {flat.at(0)->id.text()};
    run();
    EXPECT_EQ(context->report.unprocessed_types,
              (std::set<wide_string>{u"RTR_LR2D", u"segy_lr3d", u"wfs_pnt_lr2d"}));
    ASSERT_EQ(copy->scenes_2d.at(0)->count(), 4U); // not even one that was left out goes
    EXPECT_EQ(layer_2d().file, src(u"a.tif"));
    EXPECT_TRUE(files().empty());
}

TEST_F(layer_kinds, with_a_folder_for_each_scene_a_well_keeps_its_old_file) {
    vestra::scene& scene = scene_2d();
    add(scene, "plugin_lr_2d_well_profil_2", write(src(u"w.wel")));
    add(scene, "rtr_lr2d", write(src(u"a.tif")));
    settings.structure_variant = folder_per_scene;
    run();
    EXPECT_EQ(files(), std::vector<std::string>{"S/prj/a.tif"});
    EXPECT_EQ(layer_2d().file, src(u"w.wel"));
    EXPECT_EQ(problems, u"");
}

TEST_F(layer_kinds, a_file_used_twice_is_copied_once) {
    vestra::scene& scene = scene_2d();
    add(scene, "tld_lr2d", write(src(u"a.tld")));
    add(scene, "rtr_lr2d", u"C:\\PRJ\\.\\A.tld"); // saved first, and so the one that gives the folder
    run();
    EXPECT_EQ(files(), std::vector<std::string>{"rtr/A.tld"});
    for (const uint32_t layer : {0U, 1U}) EXPECT_EQ(layer_2d(layer).file, out(u"rtr\\A.tld"));
}

} // namespace vs::project_resave
