// The geodata library is not available on this target, so data sets are recognised by the host's own formats
// and by file names.
#include "reference_host/datasets/gdal_source.h"

namespace vestra::datasets {

std::unique_ptr<gdal_source> open_gdal_source(const std::filesystem::path&, const std::vector<wide_string>*) {
    return nullptr;
}

} // namespace vestra::datasets
