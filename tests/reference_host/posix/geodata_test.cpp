// Linux only: GDAL, which knows these formats, is not built for Windows.
// Data sets in the formats of the geodata library.
#include <gtest/gtest.h>

#include "reference_host/datasets/dbf_fields.h"
#include "reference_host/datasets/families.h"
#include "reference_host/datasets/gdal_source.h"
#include "tests/reference_host/opened_data_sets.h"
#include "tests/support/temporary_folder.h"

namespace vestra::datasets {
namespace {

TEST(geodata, each_sample_opens_with_all_its_files_as_requested) {
    expect_family("c/prj/rasters", "RELIEF.tif", " RELIEF.tif relief.tif.ovr");
    expect_family("d/gis/photo", "detail.jpg", " detail.jpg detail.jgw");
    expect_family("d/gis/vector", "pipes.tab", " pipes.tab pipes.map pipes.dat pipes.id");
    expect_family("d/gis/grids", "net_pay.sdat", " net_pay.sdat net_pay.sgrd net_pay.prj");
    expect_family("c/data/grids", "porosity",
                  " porosity\\dblbnd.adf porosity\\hdr.adf porosity\\prj.adf porosity\\sta.adf"
                  " porosity\\w001001.adf porosity\\w001001x.adf");
    expect_family("c/prj", "rasters", "-");
}

TEST(geodata, companions_are_found_in_a_very_large_folder) {
    const temporary_folder folder;
    for (int i = 0; i <= 1000; ++i) folder.write(platform::from_utf8("file." + std::to_string(i)));
    const std::filesystem::path relief = VS_SOURCE_DIR "/samples/area/c/prj/rasters/relief.tif";
    std::filesystem::copy_file(relief, folder.native() / "Relief.tif");
    std::filesystem::copy_file(relief.string() + ".ovr", folder.native() / "Relief.tif.ovr");
    const wide_string head = folder.path() + u"\\";
    EXPECT_EQ(" relief.TIF Relief.tif.ovr", names_of(head + u"relief.TIF", head));
}

TEST(geodata, sets_of_one_stem_have_the_files_of_their_library) {
    const temporary_folder folder;
    for (int i = 0; i <= 1000; ++i) folder.write(platform::from_utf8("other" + std::to_string(i)));
    const std::filesystem::path samples = VS_SOURCE_DIR "/samples/area", to = folder.native();
    const auto copy = [&](const char* sample, const char* name) {
        std::filesystem::copy_file(samples / sample, to / name);
    };
    copy("d/gis/photo/detail.jpg", "photo.jpg");
    copy("d/gis/photo/detail.jpg", "placed.jpg");
    copy("d/gis/photo/detail.jgw", "Placed.JGW");
    copy("c/prj/rasters/relief.tif", "relief.tif");
    copy("d/gis/tables/labs.dbf", "labs.dbf");
    copy("d/gis/tables/labs.dbf", "named.dbf");
    folder.write(u"named.cpg", "1251");
    folder.write(u"wells.csv", "a,b\n1,2\n");
    folder.write(u"area.geojson", R"({"type":"FeatureCollection","features":[]})");
    for (const char16_t* name : {u"photo.jpg", u"placed.jpg", u"relief.tif", u"labs.dbf", u"named.dbf",
                                 u"wells.csv", u"area.geojson"}) {
        const wide_string path = folder.path(name);
        const auto siblings = near_names_in_large_folder(path);
        ASSERT_TRUE(siblings);
        const auto source = open_gdal_source(platform::native_path(path), &*siblings);
        ASSERT_TRUE(source) << platform::to_utf8(path);
        file_list files;
        for (const auto& file : source->files()) files.push_back(platform::drive_path(file.string()));
        EXPECT_EQ(files, known_family(path)) << platform::to_utf8(path);
    }
    folder.write(u"relief.tif.aux.xml", "<PAMDataset/>");
    EXPECT_EQ(std::nullopt, known_family(folder.path(u"relief.tif"))); // the library looks into it
}

TEST(geodata, shape_files_have_the_files_and_fields_of_their_library) {
    const auto shapes = sample_files(".shp"), tables = sample_files(".dbf");
    ASSERT_LT(5u, shapes.size());
    for (const wide_string& shape : shapes) {
        file_list known;
        const auto source = open_gdal_source(platform::native_path(shape));
        ASSERT_TRUE(source);
        for (const auto& file : source->files()) known.push_back(platform::drive_path(file.string()));
        EXPECT_EQ(known, shape_family(shape)) << platform::to_utf8(shape);
    }
    for (const wide_string& table : tables) {
        const auto names = dbf_field_names(table);
        const auto source = open_gdal_source(platform::native_path(table));
        ASSERT_TRUE(names && source && !names->empty()) << platform::to_utf8(table);
        for (std::size_t i = 0; i < names->size(); ++i)
            EXPECT_EQ(static_cast<int32_t>(i), source->find_field(platform::from_utf8((*names)[i])));
    }
}

} // namespace
} // namespace vestra::datasets
