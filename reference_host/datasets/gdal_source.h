// What the library of geodata formats knows of a data set. Only gdal_source.cpp needs the library: a target
// that lacks it builds another body of `open_gdal_source`, which knows no format.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra::datasets {

// An open data set, read only; closed by the destructor. The operations on records concern its first layer,
// and answer -1, false and the empty text where it has none. User-interface thread only.
class gdal_source {
public:
    virtual ~gdal_source() = default;

    // The files of the data set in the library's order, as native paths; after a database its logs.
    virtual std::vector<std::filesystem::path> files() = 0;
    // Index of the field of exactly this name.
    virtual std::int32_t find_field(wide_view name) = 0;
    virtual bool first() = 0;
    virtual bool next() = 0;
    virtual wide_string field_text(std::int32_t field) = 0;
};

// Null if the file or folder is of no known format, or broken, or of one whose driver insists on writing.
// Nothing is printed, nothing is written. With `siblings`, names in the file's folder, no others are taken
// for companions and the folder is not read.
std::unique_ptr<gdal_source> open_gdal_source(const std::filesystem::path& native,
                                              const std::vector<wide_string>* siblings = nullptr);

} // namespace vestra::datasets
