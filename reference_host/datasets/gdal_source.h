// Data sets as the geodata library (GDAL) sees them. Only gdal_source.cpp needs the library; a target without
// it builds another `open_gdal_source`, which recognises no format.
#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra::datasets {

// An open data set, read-only; the destructor closes it. The record operations use its first layer and return
// -1, false and the empty text if it has none. User-interface thread only.
class gdal_source {
public:
    virtual ~gdal_source() = default;

    // Returns the files of the data set in the library's order, as native paths; the logs of a database
    // follow it.
    virtual std::vector<std::filesystem::path> files() = 0;
    // Returns the index of the field with exactly this name; -1 if there is none.
    virtual std::int32_t find_field(wide_view name) = 0;
    // Go to the first or next record; return false if there is none. Call `first` before `next`.
    virtual bool first() = 0;
    virtual bool next() = 0;
    // Returns the text of a field of the current record; empty for an unknown index and without a record.
    virtual wide_string field_text(std::int32_t field) = 0;
};

// Opens a file or folder. Returns null if its format is unknown, if it is damaged, or if its driver insists
// on writing. Prints and writes nothing. If `siblings` is given, only these names in the file's folder are
// considered as companions, and the folder is not read.
std::unique_ptr<gdal_source> open_gdal_source(const std::filesystem::path& native,
                                              const std::vector<wide_string>* siblings = nullptr);

} // namespace vestra::datasets
