// Linux only: GDAL, which creates and reads these formats, is not built for Windows.
// Reading data sets must not change them: names, bytes and times are the same after every command.
#include <gdal.h>
#include <gdal_alg.h>
#include <ogr_api.h>
#include <ogr_srs_api.h>
#include <unistd.h>

#include <nlohmann/json.hpp>

#include "tests/apps/every_command.h"

namespace vs::project_resave {
namespace {

namespace fs = std::filesystem;

using std::string;

struct closer {
    void operator()(GDALDatasetH data_set) const { GDALClose(data_set); }
};
using data_set = std::unique_ptr<void, closer>;

data_set open_set(const fs::path& file) {
    return data_set(GDALOpenEx(file.c_str(), GDAL_OF_READONLY, nullptr, nullptr, nullptr));
}

// Returns what a user sees of a data set: its position, its pixels, its records.
string shown_by(const fs::path& file) {
    const data_set opened = open_set(file);
    if (!opened) return "not opened";
    std::ostringstream shown;
    double corner[6] = {};
    if (GDALGetGeoTransform(opened.get(), corner) == CE_None)
        for (const double each : corner) shown << each << ' ';
    shown << GDALGetProjectionRef(opened.get()) << '\n';
    for (int band = 1; band <= GDALGetRasterCount(opened.get()); ++band) {
        GDALRasterBandH pixels = GDALGetRasterBand(opened.get(), band);
        const int width = GDALGetRasterXSize(opened.get()), height = GDALGetRasterYSize(opened.get());
        shown << GDALChecksumImage(pixels, 0, 0, width, height) << ' ' << GDALGetOverviewCount(pixels)
              << '\n';
    }
    for (int index = 0; index < GDALDatasetGetLayerCount(opened.get()); ++index) {
        OGRLayerH layer = GDALDatasetGetLayer(opened.get(), index);
        for (OGRFeatureH record; (record = OGR_L_GetNextFeature(layer)) != nullptr; OGR_F_Destroy(record)) {
            for (int field = 0; field < OGR_F_GetFieldCount(record); ++field)
                shown << OGR_F_GetFieldAsString(record, field) << ' ';
            char* point = nullptr;
            if (OGRGeometryH shape = OGR_F_GetGeometryRef(record)) OGR_G_ExportToWkt(shape, &point);
            shown << (point ? point : "no shape") << '\n';
            VSIFree(point);
        }
        char* projection = nullptr;
        if (OGRSpatialReferenceH known = OGR_L_GetSpatialRef(layer)) OSRExportToWkt(known, &projection);
        shown << (projection ? projection : "nowhere") << '\n';
        VSIFree(projection);
    }
    return shown.str();
}

data_set make_table(const char* driver, const string& file) {
    data_set made(GDALCreate(GDALGetDriverByName(driver), file.c_str(), 0, 0, 0, GDT_Unknown, nullptr));
    OGRSpatialReferenceH known = OSRNewSpatialReference(SRS_WKT_WGS84_LAT_LONG);
    OGRLayerH layer = GDALDatasetCreateLayer(made.get(), "points", known, wkbPoint, nullptr);
    OSRRelease(known);
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
    GDALSetProjection(memory.get(), SRS_WKT_WGS84_LAT_LONG);
    const data_set made(GDALCreateCopy(GDALGetDriverByName(driver), file.c_str(), memory.get(), 0, nullptr,
                                       nullptr, nullptr));
    EXPECT_TRUE(made) << driver;
}

class data_sets : public every_command {
protected:
    data_sets() {
        GDALAllRegister();
        fs::create_directories(folder);
        builder.scene_2d(u"S");
        const std::pair<const char*, const char*> tables[] = {
            {"ESRI Shapefile", "t.shp"}, {"MapInfo File", "t.tab"}, {"GML", "g.gml"},
            {"GeoJSON", "t.geojson"},    {"KML", "t.kml"},          {"CSV", "t.csv"},
            {"GPKG", "t.gpkg"},          {"SQLite", "t.sqlite"},    {"FlatGeobuf", "t.fgb"}};
        for (const auto& [driver, name] : tables) make_table(driver, add(name, "vector_lr2d"));
        const std::pair<const char*, const char*> rasters[] = {
            {"GTiff", "r.tif"}, {"PNG", "p.png"},  {"AAIGrid", "a.asc"}, {"SAGA", "s.sdat"},
            {"ENVI", "e.envi"}, {"EHdr", "h.bil"}, {"VRT", "v.vrt"},     {"HFA", "i.img"},
            {"netCDF", "n.nc"}, {"RST", "i.rst"}};
        for (const auto& [driver, name] : rasters) make_raster(driver, add(name, "rtr_lr2d"));
        fs::remove(folder / "g.xsd"); // without it GDAL would write a .gfs file
        leave_with_log("GPKG", "left.gpkg");
        leave_with_log("SQLite", "left.sqlite");
        add_companions();
        builder.save_scene(u"C:\\sets\\S._sn");
        builder.scene_2d(u"Typed").layer("shp_pnt_lr2d", u"j", u"C:\\sets\\j.shp");
        builder.join(u"C:\\sets\\joined.dbf").layer("rtr_lr2d", u"r", u"C:\\sets\\r.tif");
        builder.layer("tos_grid_lr2d", u"m", u"C:\\sets\\m.tos")
            .layer("vs_scene_layer_meta_id", u"S", u"C:\\sets\\S._sn");
        builder.layer("grid_lr2d", u"a", u"C:\\sets\\a.asc");
        builder.table(u"t", u"C:\\sets\\joined.dbf").save(source);
    }

    // Returns the native path of a new file that a layer shows.
    string add(const string& name, const char* type) {
        const wide_string wide = platform::from_utf8(name);
        builder.layer(type, wide, u"C:\\sets\\" + wide);
        return (folder / name).string();
    }
    void add_companions() const {
        for (const wide_string name : {u"r.tfw", u"r_tif.pj4", u"p.png.aux.xml", u"m.tod"})
            write(u"C:\\sets\\" + name, "<PAMDataset/>");
        write(u"C:\\sets\\p.pgw", "0.5\n0\n0\n-0.5\n30.25\n59.75\n");
        write(u"C:\\sets\\m.tos", "TOS 1\nproperty X\nmember .tod\n");
        for (const string part : {".shp", ".shx", ".dbf", ".prj"})
            fs::copy_file(folder / ("t" + part), folder / ("j" + part));
        fs::copy_file(folder / "t.dbf", folder / "joined.dbf");
        const data_set raster = open_set(folder / "r.tif");
        int level = 2;
        EXPECT_EQ(CE_None,
                  GDALBuildOverviews(raster.get(), "NEAREST", 1, &level, 0, nullptr, nullptr, nullptr));
    }
    // Leaves a database as a program does that is killed before its log is merged: the second row is only in
    // the log.
    void leave_with_log(const char* driver, const string& name) {
        const string live = (streams.native() / name).string();
        const data_set open = make_table(driver, live);
        for (const char* text : {"PRAGMA journal_mode=WAL", "INSERT INTO points (name) VALUES ('late')"})
            GDALDatasetReleaseResultSet(open.get(),
                                        GDALDatasetExecuteSQL(open.get(), text, nullptr, nullptr));
        GDALFlushCache(open.get());
        const string left = add(name, "vector_lr2d");
        for (const char* part : {"", "-wal"}) fs::copy_file(live + part, left + part);
    }

    const temporary_folder streams;
    const fs::path folder = native("c") / "sets";
};

TEST_F(data_sets, are_as_they_were_after_every_command) {
    EXPECT_GT(all_drives().size(), 45U);
    run_all(u"C:\\sets\\");
}

// Runs as a user without write permission.
TEST_F(data_sets, can_be_copied_by_who_may_only_read_them) {
    for (fs::path above = native("n"); above != fs::temp_directory_path(); above = above.parent_path())
        fs::permissions(above, fs::perms::group_all | fs::perms::others_all, fs::perm_options::add);
    fs::permissions(native("n") / "out", fs::perms::all);
    constexpr auto written = fs::perms::owner_write | fs::perms::group_write | fs::perms::others_write;
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(native("c")))
        fs::permissions(entry.path(), written, fs::perm_options::remove);
    const tree_state before = sources();
    const string as_another = ::geteuid() == 0 ? "exec setpriv --reuid=65534 --clear-groups " : "exec ";
    const string all =
        "resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --log --scene-files --layer-files --verify ";
    EXPECT_GE(1, run(as_another + line_of(all).substr(string("exec").size()))) << err; // world files stay
    EXPECT_FALSE(is_told("could not be")) << err;
    EXPECT_EQ("", difference(before, sources()));
    for (const fs::directory_entry& entry : fs::recursive_directory_iterator(native("c")))
        fs::permissions(entry.path(), fs::perms::owner_write, fs::perm_options::add);
}

class moved_data_sets : public data_sets {
protected:
    // Resaves to a target with the name of a source, moves the copy and removes the source.
    void SetUp() override {
        write(u"N:\\out\\rtr\\a.asc", "older");
        for (const auto& entry : fs::directory_iterator(folder))
            shown[entry.path().filename()] = shown_by(entry.path());
        ASSERT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --manifest --json --quiet"))
            << err;
        copied = nlohmann::json::parse(out).at("files");
        fs::remove(native("n") / "out/rtr/a.asc");
        fs::rename(native("n") / "out", moved);
        for (const char* gone : {"sets", "prj"}) fs::rename(native("c") / gone, native("d") / gone);
    }

    const fs::path moved = native("n") / "moved";
    const string verify = "verify 'N:\\moved\\new._vp' --manifest";
    std::map<string, string> shown; // by the name of a file of the source
    nlohmann::json copied;
};

TEST_F(moved_data_sets, open_as_their_sources_did) {
    EXPECT_EQ(0, command(verify + " --elsewhere")) << out << err;
    size_t opened = 0;
    for (const auto& file : copied) {
        const string name = platform::to_utf8(
                         path_file_name(platform::from_utf8(file.at("source").get<string>()))),
                     target = file.at("target");
        if (name.starts_with("left.") || !shown.contains(name)) continue;
        string below = target.substr(string("N:\\out\\").size());
        std::ranges::replace(below, '\\', '/');
        EXPECT_EQ(shown.at(name), shown_by(moved / below)) << name << " as " << below;
        opened += shown.at(name) != "not opened";
    }
    EXPECT_GT(opened, 20U);
}

TEST_F(moved_data_sets, are_missed_file_by_file) {
    std::vector<fs::path> files;
    for (const auto& entry : fs::recursive_directory_iterator(moved))
        if (entry.is_regular_file() && entry.path().extension() != "._vp" &&
            entry.path().extension() != ".json")
            files.push_back(entry.path());
    EXPECT_GT(files.size(), 40U);
    for (const fs::path& file : files) {
        fs::rename(file, native("d") / "aside");
        EXPECT_EQ(1, command(verify)) << file;
        string told = "N:\\moved\\" + file.lexically_relative(moved).string();
        std::ranges::replace(told, '/', '\\');
        EXPECT_TRUE(is_printed(told)) << told << '\n' << out;
        fs::rename(native("d") / "aside", file);
    }
    fs::rename(moved / "rtr/e.hdr", native("d") / "e.hdr");
    fs::create_symlink(native("d") / "e.hdr", moved / "rtr/e.hdr");
    EXPECT_EQ(1, command("verify 'N:\\moved\\new._vp'"));
    EXPECT_TRUE(is_printed("outside: layer e.envi: N:\\moved\\rtr\\e.hdr")) << out;
}

TEST_F(data_sets, bring_along_what_their_databases_had_not_merged) {
    EXPECT_GE(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --quiet")) << err; // as above
    for (const char* name : {"left.gpkg", "left.sqlite"}) {
        const fs::path copied = native("n") / "out/vector" / name;
        const data_set opened(
            GDALOpenEx(copied.c_str(), GDAL_OF_VECTOR | GDAL_OF_UPDATE, nullptr, nullptr, nullptr));
        ASSERT_TRUE(opened) << copied;
        EXPECT_EQ(2, OGR_L_GetFeatureCount(GDALDatasetGetLayer(opened.get(), 0), 1)) << copied;
    }
}

TEST_F(data_sets, that_read_what_is_not_theirs_are_reported) {
    builder.clear();
    builder.scene_2d(u"S");
    for (const char* name : {"a", "b"}) {
        fs::create_directories(native("c") / name);
        make_raster("GTiff", (native("c") / name / "tile.tif").string());
    }
    for (const char* name : {"e.ers", "x.png"})
        make_raster(name[0] == 'e' ? "ERS" : "PNG", (native("c") / "a" / name).string());
    write(u"C:\\b\\m.tif", "<VRTDataset rasterXSize=\"4\" rasterYSize=\"4\"><VRTRasterBand dataType=\"Byte\" "
                           "band=\"1\"><SimpleSource><SourceFilename relativeToVRT=\"1\">tile.tif"
                           "</SourceFilename></SimpleSource></VRTRasterBand></VRTDataset>");
    write(u"N:\\out\\rtr\\x.wld", "0.5\n0\n0\n-0.5\n30\n60\n");
    for (const wide_string path : {u"b\\tile.tif", u"a\\tile.tif", u"b\\m.tif", u"a\\e.ers", u"a\\x.png"})
        builder.layer("rtr_lr2d", path, u"C:\\" + path);
    builder.save(source);
    EXPECT_EQ(1, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --json --quiet")) << err;
    std::set<string> found;
    const auto report = nlohmann::json::parse(out);
    for (const auto& each : report.at("problems"))
        found.insert(each.at("kind").get<string>() + " " + each.at("new_path").get<string>());
    EXPECT_EQ((std::set<string>{"reads_other N:\\out\\rtr\\m.tif", "reads_other N:\\out\\rtr\\x.png"}), found)
        << err;
    EXPECT_EQ(0, command("verify 'N:\\out\\new._vp'")) << out;
    fs::remove(native("n") / "out/rtr/e");
    EXPECT_EQ(1, command("verify 'N:\\out\\new._vp'"));
    EXPECT_TRUE(is_printed("N:\\out\\rtr\\e, in N:\\out\\rtr\\e.ers")) << out;
}

TEST_F(data_sets, that_differ_in_letter_case_alone_keep_their_own_companions) {
    builder.clear();
    builder.scene_2d(u"S");
    fs::create_directories(native("c") / "t");
    for (const string name : {"A", "a"}) {
        for (const char* part : {".tif", ".prj", ".qml"})
            std::ofstream(native("c") / "t" / (name + part)) << name; // `write` ignores letter case
        builder.layer("rtr_lr2d", platform::from_utf8(name),
                      u"C:\\t\\" + platform::from_utf8(name) + u".tif");
    }
    builder.save(source);
    EXPECT_EQ(0, command("resave 'C:\\prj\\area._vp' 'N:\\out\\new._vp' --json --quiet")) << err;
    const auto files = nlohmann::json::parse(out).at("files");
    EXPECT_EQ(6U + 1, files.size()); // and the project
    for (const auto& each : files) {
        const string from = each.at("source"), to = each.at("target");
        EXPECT_TRUE(!from.starts_with("C:\\t\\") || from.substr(5, 1) == read(platform::from_utf8(to))) << to;
    }
    fs::rename(native("n") / "out/rtr", native("n") / "out/real");
    for (const auto& [target, code] : {std::pair(fs::path("real"), 0), {native("n") / "out/real", 1}}) {
        fs::remove(native("n") / "out/rtr");
        fs::create_directory_symlink(target, native("n") / "out/rtr");
        EXPECT_EQ(code, command("verify 'N:\\out\\new._vp' --elsewhere")) << out;
    }
}

} // namespace
} // namespace vs::project_resave
