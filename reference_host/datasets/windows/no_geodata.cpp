// The library of geodata formats is not there on this target: what makes a data set is told by the host's own
// formats and by the names of files.
#include "reference_host/datasets/gdal_source.h"

namespace vestra::datasets {

std::unique_ptr<gdal_source> open_gdal_source(const std::filesystem::path&, const std::vector<wide_string>*) {
    return nullptr;
}

} // namespace vestra::datasets
