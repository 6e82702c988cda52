// Every kind of layer, resaved from real files.
#include "tests/layers/layer_run.h"
#include "tests/support/forwarding_system.h"

namespace vs::project_resave {

namespace {

// A name stands below src and below out; a reference that holds a colon or begins with "*" is no name.
struct kind_row {
    const char* type;
    names files;
    wide_string reference;
    names expected;
    wide_string new_reference; // unlike the reference where the layer has a file that can be lost
    wide_view layer_file = {}; // extension
    const char* meta_id = nullptr;
    bool has_table = false;
};

const kind_row kinds[] = {
    {"shp_pnt_lr2d",
     {u"r.shp", u"r.shx", u"r.dbf", u"r.cpg", u"r_shp.pj4", u"r.txt"},
     u"r.shp",
     {u"shp\\r.cpg", u"shp\\r.dbf", u"shp\\r.shp", u"shp\\r.shx", u"shp\\r_shp.pj4"},
     u"shp\\r.shp",
     u"._lr",
     nullptr,
     true},
    {"shp_pgn_lr3d",
     {u"r.shp", u"r.shx", u"r.dbf"},
     u"r.shp",
     {u"shp\\r.shp", u"shp\\r.shx"},
     u"shp\\r.shp",
     u"._lrd"},
    {"rtr_lr2d",
     {u"a.tif", u"a.tif.ovr", u"a.tfw", u"a_tif.pj4"},
     u"a.tif",
     {u"rtr\\a.tfw", u"rtr\\a.tif", u"rtr\\a.tif.ovr", u"rtr\\a_tif.pj4"},
     u"rtr\\a.tif",
     u"._lr"},
    {"rtr_lr2d", {u"a.x", u"a_x.pj4"}, u"a.x", {u"rtr\\a.x"}, u"rtr\\a.x", u"._lr"},
    {"tld_lr2d",
     {u"a.tld", u"a_tld.pj4", u"a.ovr"},
     u"a.tld",
     {u"tld\\a.tld", u"tld\\a_tld.pj4"},
     u"tld\\a.tld",
     u"._lr"},
    {"wms_lr2d", {}, u"https://maps.example/wms", {}, u"https://maps.example/wms"},
    {"grid_lr2d", {u"g.sgy", u"g_sgy.pj4"}, u"g.sgy", {u"sgy\\g.sgy", u"sgy\\g_sgy.pj4"}, u"sgy\\g.sgy"},
    {"segy_lr3d", {u"g.SGY"}, u"g.SGY", {u"grid\\g.SGY"}, u"grid\\g.SGY"},
    {"grid_lr2d", {u"g\\a.val", u"g\\b\\c.val"}, u"g", {u"grid\\g\\a.val", u"grid\\g\\b\\c.val"}, u"grid\\g"},
    {"vector_lr2d",
     {u"v.abc", u"v.ind", u"v_abc.pj4"},
     u"v.abc",
     {u"vector\\v.abc", u"vector\\v.ind", u"vector\\v_abc.pj4"},
     u"vector\\v.abc"},
    {"vector_polygon_lr2d", {u"v\\a.mif"}, u"v", {u"vector\\v\\a.mif"}, u"vector\\v"},
    {"vector_point_lr2d", {}, u"*PG:host=db", {}, u"*PG:host=db"},
    {"tos_2crd_lr2d",
     {u"t.tos", u"t.tod", u"t_tos.pj4"},
     u"t.tos",
     {u"tos\\t.tod", u"tos\\t.tos"},
     u"tos\\t.tos",
     u"._lr"},
    {"tos_surf_lr3d",
     {u"t.tos", u"t.tod"},
     u"t.tos",
     {u"tos\\t.tod", u"tos\\t.tos"},
     u"tos\\t.tos",
     u"._lrd"},
    {"shp_pnt_lr2d",
     {u"t.tos", u"t.tod"},
     u"*t.tos",
     {u"tos\\t.tod", u"tos\\t.tos"},
     u"*tos\\t.tos",
     u"._lr",
     "grid_cutline_lr2d"},
    {"any",
     {u"n.grf", u"n_grf.pj4"},
     u"n.grf",
     {u"graphics\\n.grf", u"graphics\\n_grf.pj4"},
     u"graphics\\n.grf",
     {},
     "graph_lr2d"},
    {"plugin_lr_2d_well_profil_2",
     {u"w.wel", u"w\\log.las"},
     u"w.wel",
     {u"well\\w.wel", u"well\\w\\log.las"},
     u"well\\w.wel",
     u"._lr"},
    {"plugin_lr_3d_wells_2", {u"w.wel"}, u"w.wel", {u"well\\w.wel"}, u"well\\w.wel", u"._lrd"},
    {"map_lr3d",
     {},
     u"*6f0c0000-0000-4000-8000-000000000001*",
     {},
     u"*6f0c0000-0000-4000-8000-000000000001*"},
    {"prf_lines_lr2d", {u"p.shp"}, u"C:\\elsewhere\\p.shp", {}, u"C:\\elsewhere\\p.shp"},
    {"prf_compound_lr2d", {}, u"C:\\elsewhere\\c", {}, u"C:\\elsewhere\\c"},
};

class layer_kinds : public layer_run {
protected:
    wide_string placed(const wide_string& name, wide_view folder) const {
        if (name.find(u':') != wide_string::npos || name.ends_with(u'*')) return name;
        const bool marked = name.starts_with(u'*');
        return (marked ? u"*" : u"") + disk.path(folder) + u"\\" + name.substr(marked ? 1 : 0);
    }
    // The scene of the one layer of this kind.
    vestra::scene& begin(const kind_row& row) {
        clear();
        settings.save_layer_files = true;
        for (const wide_string& name : row.files)
            disk.write(u"src\\" + name, name == u"t.tos" ? "TOS 1\nproperty X\nmember t.tod\n" : "content");
        vestra::scene& scene =
            std::string_view(row.type).ends_with("3d") || is_3d_plugin(row) ? scene_3d() : scene_2d();
        vestra::layer& layer = add(scene, row.type, placed(row.reference, u"src"));
        layer.caption = u"a:b";
        if (row.meta_id) layer.meta_id = row.meta_id;
        if (row.has_table) {
            layer.data = std::make_unique<vestra::attr_data>();
            layer.data->id = vestra::uuid::random();
            layer.data->file = src(u"r.dbf");
        }
        return scene;
    }
    static bool is_3d_plugin(const kind_row& row) {
        return std::string_view(row.type).find("3d") != std::string_view::npos;
    }
    // That layer in the new project; null if it left.
    vestra::layer* result() {
        return copy->scenes_2d.count() > 0 ? copy->scenes_2d.at(0)->at(0) : copy->scenes_3d.at(0)->at(0);
    }
    static bool has_file(const kind_row& row) { return row.reference != row.new_reference; }
};

} // namespace

TEST_F(layer_kinds, files_land_in_the_folder_of_their_type_and_the_layer_names_them_there) {
    for (const kind_row& row : kinds) {
        SCOPED_TRACE(testing::Message() << row.type << " on " << testing::PrintToString(row.reference));
        begin(row);
        resave();
        names expected = row.expected;
        if (!row.layer_file.empty()) expected.push_back(u"a_b" + wide_string(row.layer_file));
        std::ranges::sort(expected);
        EXPECT_EQ(copied(), expected);
        EXPECT_EQ(result()->file, placed(row.new_reference, u"out"));
        EXPECT_EQ(problems, row.reference == u"a.x" ? u"Copy error a.x\n" : u"");
        EXPECT_TRUE(unprocessed_types.empty());
    }
}

TEST_F(layer_kinds, a_lost_source_is_reported_and_the_layer_stays_unless_it_is_to_go) {
    for (const kind_row& row : kinds) {
        for (const bool removes : {false, true}) {
            SCOPED_TRACE(testing::Message() << row.type << ' ' << removes);
            begin(row);
            for (const wide_string& name : row.files) remove_tree(src(name));
            remove_tree(src(row.reference));
            settings.delete_lost_sources = removes;
            resave();
            EXPECT_EQ(problems, has_file(row) ? u"Lost files a:b\n" : u"");
            EXPECT_TRUE(copied().empty());
            EXPECT_EQ(result() == nullptr, has_file(row) && removes);
            if (!result()) continue;
            EXPECT_EQ(result()->file, placed(row.reference, u"src"));
        }
    }
}

TEST_F(layer_kinds, a_failed_copy_is_reported_and_the_layer_names_the_new_place_all_the_same) {
    struct no_copies : forwarding_system {
        bool copy_file(const wide_string&, const wide_string&, bool) override { return false; }
    };
    for (const kind_row& row : kinds) {
        SCOPED_TRACE(row.type);
        begin(row);
        settings.save_layer_files = false;
        no_copies faults;
        const platform::system_override in_force(faults);
        resave();
        EXPECT_EQ(problems.starts_with(u"Copy error " + path_file_name(placed(row.reference, u"src"))),
                  has_file(row));
        EXPECT_TRUE(copied().empty());
        EXPECT_EQ(result()->file, placed(row.new_reference, u"out"));
    }
}

TEST_F(layer_kinds, a_type_that_nothing_resaves_is_told_once_and_its_layer_keeps_its_old_reference) {
    vestra::scene& flat = scene_2d();
    for (const char* type : {"wfs_pnt_lr2d", "wfs_pnt_lr2d", "RTR_LR2D", "segy_lr3d", ""})
        add(flat, type, src(u"a.tif"));
    add(scene_3d(), "rtr_lr2d", src(u"a.tif"));
    disk.write(u"src\\a.tif");
    deselected = {flat.at(0)->id.text()};
    resave();
    EXPECT_EQ(unprocessed_types,
              (std::set<wide_string>{u"", u"RTR_LR2D", u"rtr_lr2d", u"segy_lr3d", u"wfs_pnt_lr2d"}));
    ASSERT_EQ(copy->scenes_2d.at(0)->count(), 5U); // not even one that was left out goes
    EXPECT_EQ(layer_2d().file, src(u"a.tif"));
    EXPECT_TRUE(copied().empty());
}

TEST_F(layer_kinds, with_a_folder_for_each_scene_a_well_keeps_its_old_file) {
    disk.write(u"src\\w.wel");
    disk.write(u"src\\a.tif");
    vestra::scene& scene = scene_2d();
    add(scene, "plugin_lr_2d_well_profil_2", src(u"w.wel"));
    add(scene, "rtr_lr2d", src(u"a.tif"));
    settings.structure_variant = folder_per_scene;
    settings.save_layer_files = true;
    resave();
    EXPECT_EQ(copied(), (names{u"S\\L._lr", u"S\\src\\a.tif"}));
    EXPECT_EQ(layer_2d().file, src(u"w.wel"));
    EXPECT_EQ(problems, u"");
}

TEST_F(layer_kinds, a_file_used_twice_is_copied_once) {
    disk.write(u"src\\a.tld");
    vestra::scene& scene = scene_2d();
    add(scene, "tld_lr2d", src(u"a.tld"));
    add(scene, "rtr_lr2d", disk.path(u"SRC\\.\\A.tld")); // saved first, and so the one that gives the folder
    resave();
    EXPECT_EQ(copied(), (names{u"rtr\\A.tld"}));
    EXPECT_EQ(layer_2d(0).file, out(u"rtr\\A.tld"));
    EXPECT_EQ(layer_2d(1).file, out(u"rtr\\A.tld"));
}

} // namespace vs::project_resave
