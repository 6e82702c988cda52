// Linux only: GDAL, which makes and reads these formats, is not built for Windows.
// To look at data sets is only to read them: names, bytes and times are the same after every command.
#include <gdal.h>
#include <ogr_api.h>

#include "tests/apps/command_run.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using std::string;

struct closer {
    void operator()(GDALDatasetH data_set) const { GDALClose(data_set); }
};
using data_set = std::unique_ptr<void, closer>;

data_set make_table(const char* driver, const string& file) {
    data_set made(GDALCreate(GDALGetDriverByName(driver), file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRLayerH layer = GDALDatasetCreateLayer(made.get(), "points", nullptr, wkbPoint, nullptr);
    OGRFieldDefnH field = OGR_Fld_Create("name", OFTString);
    EXPECT_EQ(OGR_L_CreateField(layer, field, 1), OGRERR_NONE) << driver;
    OGR_Fld_Destroy(field);
    OGRFeatureH record = OGR_F_Create(OGR_L_GetLayerDefn(layer));
    OGR_F_SetFieldString(record, 0, "row");
    if (OGR_F_GetGeomFieldCount(record) > 0) {
        OGRGeometryH point = OGR_G_CreateGeometry(wkbPoint);
        OGR_G_SetPoint_2D(point, 0, 30, 60);
        EXPECT_EQ(OGR_F_SetGeometryDirectly(record, point), OGRERR_NONE) << driver;
    }
    EXPECT_EQ(OGR_L_CreateFeature(layer, record), OGRERR_NONE) << driver;
    OGR_F_Destroy(record);
    return made;
}

void make_raster(const char* driver, const string& file) {
    const data_set memory(GDALCreate(GDALGetDriverByName("MEM"), "", 4, 4, 1, GDT_Byte, nullptr));
    double corner[] = {30, 0.5, 0, 60, 0, -0.5};
    GDALSetGeoTransform(memory.get(), corner);
    const data_set made(GDALCreateCopy(GDALGetDriverByName(driver), file.c_str(), memory.get(), 0, nullptr,
                                       nullptr, nullptr));
    EXPECT_TRUE(made) << driver;
}

class data_sets : public command_run {
protected:
    data_sets() {
        GDALAllRegister();
        fs::create_directories(folder);
        builder.scene_2d(u"S");
        const std::pair<const char*, const char*> tables[] = {
            {"ESRI Shapefile", "t.shp"}, {"MapInfo File", "t.tab"}, {"GML", "g.gml"},
            {"GeoJSON", "t.geojson"},    {"KML", "t.kml"},          {"CSV", "t.csv"},
            {"GPKG", "t.gpkg"},          {"SQLite", "t.sqlite"},    {"FlatGeobuf", "t.fgb"}};
        for (const auto& [driver, name] : tables) make_table(driver, add(name));
        const std::pair<const char*, const char*> rasters[] = {
            {"GTiff", "r.tif"}, {"PNG", "p.png"},  {"AAIGrid", "a.asc"}, {"SAGA", "s.sdat"},
            {"ENVI", "e.envi"}, {"EHdr", "h.bil"}, {"VRT", "v.vrt"},     {"HFA", "i.img"},
            {"netCDF", "n.nc"}, {"RST", "i.rst"}};
        for (const auto& [driver, name] : rasters) make_raster(driver, add(name));
        fs::remove(folder / "g.xsd"); // its reader would like to write down what it found out
        leave_with_log("GPKG", "left.gpkg");
        leave_with_log("SQLite", "left.sqlite");
        builder.save(source);
    }

    // The native path of a new file, which a layer shows.
    string add(const string& name) {
        const wide_string wide = platform::from_utf8(name);
        builder.layer("vector_lr2d", wide, u"C:\\sets\\" + wide);
        return (folder / name).string();
    }
    // A database as a program leaves it that ends before its log is merged: the second row is in the log
    // alone.
    void leave_with_log(const char* driver, const string& name) {
        const string live = (streams.native() / name).string();
        const data_set open = make_table(driver, live);
        for (const char* text : {"PRAGMA journal_mode=WAL", "INSERT INTO points (name) VALUES ('late')"})
            GDALDatasetReleaseResultSet(open.get(),
                                        GDALDatasetExecuteSQL(open.get(), text, nullptr, nullptr));
        GDALFlushCache(open.get());
        const string left = add(name);
        for (const char* part : {"", "-wal"}) fs::copy_file(live + part, left + part);
    }

    const temporary_folder streams;
    const fs::path folder = native("c") / "sets";
};

TEST_F(data_sets, are_as_they_were_after_every_command) {
    const tree_state before = all_drives();
    EXPECT_GT(before.size(), 35U);
    for (const string command_words : {"list 'C:\\prj\\area._vp' --json",
                                       "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet --dry-run"}) {
        EXPECT_EQ(0, command(command_words)) << err;
        EXPECT_EQ("", difference(before, all_drives())) << command_words;
    }
    const tree_state of_source = state_of(native("c"));
    EXPECT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet")) << err;
    EXPECT_EQ("", difference(of_source, state_of(native("c"))));

    for (const char* name : {"left.gpkg", "left.sqlite"}) { // the log came along
        const fs::path copied = native("n") / "out/vector" / name;
        const data_set opened(
            GDALOpenEx(copied.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, nullptr, nullptr, nullptr));
        ASSERT_TRUE(opened) << copied;
        EXPECT_EQ(2, OGR_L_GetFeatureCount(GDALDatasetGetLayer(opened.get(), 0), 1)) << copied;
    }
}

} // namespace
} // namespace vs::project_resave
