// The lines of layers in the text of a project's structure.
#include "layers/layer_factory.h"
#include "platform/volumes.h"
#include "reference_host/api/handles.h"
#include "tests/layers/layer_run.h"

namespace vs::project_resave {

namespace {

wide_string sample(const char* name) {
    return platform::drive_path(std::string(VS_SOURCE_DIR "/samples/area/c/") + name);
}

} // namespace

TEST_F(layer_run, each_kind_of_layer_has_its_lines_in_the_structure) {
    disk.write(u"src\\t.tos", "TOS 1\nproperty Depth\nproperty X\n");
    write_map(u"m._sn", u"a.tif");
    project_context context(nullptr);
    context.options.write_file_paths = context.options.write_table_columns = true;
    context.options.write_layer_names = true;
    context.options.indent_unit = u"\t";
    context.log.open(out(u"structure.txt"), true);
    vestra::scene& flat = scene_2d();
    const auto write = [&](const char* type, wide_view reference, common_directory* files = nullptr,
                           std::unique_ptr<vestra::attr_data> table = nullptr) {
        vestra::layer& layer = add(flat, type, reference.empty() ? wide_string() : src(reference));
        layer.data = std::move(table);
        const auto unit = make_layer_unit_2d(context, vestra::api::to_handle<vs_lr>(&layer));
        unit->build_once();
        if (files) unit->collect_common_directory(*files);
        context.progress.total = 100;
        context.progress.current = 0;
        unit->write_structure();
        return context.progress.current;
    };
    common_directory common; // of the shape layer's main file, untested, and the one joined table that exists
    auto table = std::make_unique<vestra::attr_data>();
    table->file = sample("prj/maps/settlements.dbf");
    table->joins = {{sample("data/tables/owners.dbf"), 0, 0}, {src(u"gone.dbf"), 0, 0}};
    EXPECT_EQ(write("shp_pnt_lr2d", u"r.shp", &common, std::move(table)), 1U);
    size_t counted = 0;
    for (const auto& [drive, files] : common.drives) counted += files.counted;
    EXPECT_EQ(counted, 2U);
    EXPECT_EQ(write("vector_lr2d", u"v.mif"), 1U);
    EXPECT_EQ(write("tos_grid_lr2d", u"t.tos"), 1U);
    EXPECT_EQ(write("plugin_lr_2d_well_profil_2", u"w.wel"), 0U);
    EXPECT_EQ(write("vs_scene_layer_meta_id", u"m._sn"), 1U); // the step of the layer inside
    context.options.indent_unit.clear();
    context.options.write_table_columns = false;
    EXPECT_EQ(write("tos_grid_lr2d", u"t.tos"), 1U);
    context.options.write_file_paths = false;
    EXPECT_EQ(write("wms_lr2d", u"s"), 1U);
    const auto at = [&](wide_view name) { return platform::to_utf8(src(name)) + "\r\n"; };
    EXPECT_EQ(disk.read(u"out\\structure.txt"),
              "L\t" + at(u"r.shp") +
                  "\tCollumn DBF-table shp-files\r\n\tID\r\n\tNAME\r\n\tJoin field: ID\r\n\tJoin field: "
                  "OWNER\r\nL\t" +
                  at(u"v.mif") + "L\t" + at(u"t.tos") + "\tDepth\r\n\tX\r\nL\t" + at(u"w.wel") +
                  "Scene 2D:L\t" + at(u"m._sn") + "S\r\n\tL\t" + at(u"a.tif") + "L " + at(u"t.tos") +
                  "L\r\n");
}

} // namespace vs::project_resave
