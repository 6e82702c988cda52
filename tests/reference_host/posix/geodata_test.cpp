// Linux only: GDAL, which knows these formats, is not built for Windows.
// Data sets of the formats that the library of geodata formats knows.
#include <gtest/gtest.h>

#include "reference_host/datasets/dbf_fields.h"
#include "reference_host/datasets/families.h"
#include "reference_host/datasets/gdal_source.h"
#include "tests/reference_host/opened_data_sets.h"
#include "tests/support/temporary_folder.h"

namespace vestra::datasets {
namespace {

TEST(geodata, each_sample_opens_with_all_its_files_told_as_asked) {
    expect_family("c/prj/rasters", "RELIEF.tif", " RELIEF.tif relief.tif.ovr");
    expect_family("d/gis/photo", "detail.jpg", " detail.jpg detail.jgw");
    expect_family("d/gis/vector", "pipes.tab", " pipes.tab pipes.map pipes.dat pipes.id");
    expect_family("d/gis/grids", "net_pay.sdat", " net_pay.sdat net_pay.sgrd net_pay.prj");
    expect_family("c/data/tables", "owners.dbf", " owners.dbf owners.cpg");
    expect_family(
        "c/data/vector", "blocks",
        " blocks\\north.cpg blocks\\north.dbf blocks\\north.prj blocks\\north.shp blocks\\north.shx"
        " blocks\\south.cpg blocks\\south.dbf blocks\\south.prj blocks\\south.shp blocks\\south.shx");
    expect_family("c/data/grids", "porosity",
                  " porosity\\dblbnd.adf porosity\\hdr.adf porosity\\prj.adf porosity\\sta.adf"
                  " porosity\\w001001.adf porosity\\w001001x.adf");
    expect_family("c/prj", "rasters", "-");
}

TEST(geodata, companions_are_found_in_a_folder_too_large_to_be_read_for_each_file) {
    const temporary_folder folder;
    for (int i = 0; i <= 1000; ++i) folder.write(platform::from_utf8("file." + std::to_string(i)));
    const std::filesystem::path relief = VS_SOURCE_DIR "/samples/area/c/prj/rasters/relief.tif";
    std::filesystem::copy_file(relief, folder.native() / "Relief.tif");
    std::filesystem::copy_file(relief.string() + ".ovr", folder.native() / "Relief.tif.ovr");
    const wide_string head = folder.path() + u"\\";
    EXPECT_EQ(" relief.TIF Relief.tif.ovr", names_of(head + u"relief.TIF", head));
}

TEST(geodata, shape_files_need_not_be_opened_to_name_what_their_library_names) {
    const auto shapes = sample_files(".shp");
    ASSERT_LT(5u, shapes.size());
    for (const wide_string& shape : shapes) {
        file_list known;
        const auto source = open_gdal_source(platform::native_path(shape));
        ASSERT_TRUE(source);
        for (const auto& file : source->files()) known.push_back(platform::drive_path(file.string()));
        EXPECT_EQ(known, shape_family(shape)) << platform::to_utf8(shape);
    }
}

TEST(geodata, dbf_names_are_those_that_the_geodata_library_finds) {
    for (const wide_string& table : sample_files(".dbf")) {
        const auto names = dbf_field_names(table);
        const auto source = open_gdal_source(platform::native_path(table));
        ASSERT_TRUE(names && source) << platform::to_utf8(table);
        ASSERT_FALSE(names->empty());
        for (std::size_t i = 0; i < names->size(); ++i)
            EXPECT_EQ(static_cast<int32_t>(i), source->find_field(platform::from_utf8((*names)[i])));
    }
}

} // namespace
} // namespace vestra::datasets
