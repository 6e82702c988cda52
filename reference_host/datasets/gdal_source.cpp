// Opens data sets with GDAL, read-only, and asks it for their files and records.
#include "reference_host/datasets/gdal_source.h"

#include <cpl_conv.h>
#include <cpl_string.h>
#include <gdal.h>
#include <ogr_api.h>

#include <algorithm>
#include <cctype>

#include "platform/text.h"
#include "reference_host/datasets/reading_only.h"

namespace vestra::datasets {

namespace platform = vs::project_resave::platform;

namespace {

struct closer {
    void operator()(GDALDatasetH data_set) const {
        const reading_only scope;
        // Read-only, because some drivers write statistics or an index when they are closed.
        GDALClose(data_set);
    }
};
using data_set_handle = std::unique_ptr<void, closer>;

struct feature_closer {
    void operator()(void* feature) const { OGR_F_Destroy(feature); }
};
using feature_handle = std::unique_ptr<void, feature_closer>;

// Appends the logs that an interrupted program left next to a database; without them its last changes would
// be lost.
void append_logs(const std::string& file, std::vector<std::filesystem::path>& paths) {
    for (const char* suffix : {"-wal", "-journal"}) {
        std::error_code unreachable;
        std::filesystem::path log = file + suffix;
        if (std::filesystem::is_regular_file(log, unreachable)) paths.push_back(std::move(log));
    }
}

class opened_source final : public gdal_source {
public:
    explicit opened_source(data_set_handle data_set)
        : data_set_(std::move(data_set)), layer_(GDALDatasetGetLayer(data_set_.get(), 0)) {}

    // Can open further files, to learn which ones belong to the data set.
    std::vector<std::filesystem::path> files() override {
        const reading_only scope;
        const std::unique_ptr<char*, void (*)(char**)> names(GDALGetFileList(data_set_.get()), &CSLDestroy);
        std::vector<std::filesystem::path> paths;
        for (char** name = names.get(); name != nullptr && *name != nullptr; ++name) {
            // A log belongs to its database, so it follows it in the list.
            paths.emplace_back(*name);
            append_logs(*name, paths);
        }
        return paths;
    }

    std::int32_t find_field(wide_view name) override {
        if (layer_ == nullptr) return -1;
        const std::string wanted = platform::to_utf8(name);
        const OGRFeatureDefnH definition = OGR_L_GetLayerDefn(layer_);
        for (int field = 0; field < OGR_FD_GetFieldCount(definition); ++field)
            if (wanted == OGR_Fld_GetNameRef(OGR_FD_GetFieldDefn(definition, field))) return field;
        return -1;
    }

    bool first() override {
        if (layer_ == nullptr) return false;
        const reading_only scope;
        OGR_L_ResetReading(layer_);
        return next();
    }

    bool next() override {
        if (layer_ == nullptr) return false;
        const reading_only scope;
        record_.reset(OGR_L_GetNextFeature(layer_));
        return record_ != nullptr;
    }

    wide_string field_text(std::int32_t field) override {
        const bool is_there = record_ && field >= 0 && field < OGR_F_GetFieldCount(record_.get());
        return is_there ? platform::from_utf8(OGR_F_GetFieldAsString(record_.get(), field)) : wide_string();
    }

private:
    // Declared before the record, so that the record is destroyed first.
    data_set_handle data_set_;
    OGRLayerH layer_; // owned by the data set; null if it has no records
    feature_handle record_;
};

// Returns the driver to try first, because there are more than two hundred; null if the extension suggests
// none.
const char* likely_driver(const std::filesystem::path& file) {
    std::string extension = file.extension().string();
    std::ranges::transform(extension, extension.begin(), [](unsigned char c) { return std::tolower(c); });
    if (extension == ".tif" || extension == ".tiff") return "GTiff";
    return extension == ".dbf" ? "ESRI Shapefile" : nullptr;
}

void register_drivers() {
    [[maybe_unused]] static const bool done = [] {
        GDALAllRegister();
        // Temporary files would otherwise go to the current folder, which may be the project folder.
        std::error_code unknown;
        const std::string folder = std::filesystem::temp_directory_path(unknown).string();
        if (!unknown) CPLSetConfigOption("CPL_TMPDIR", folder.c_str());
        return true;
    }();
}

} // namespace

std::unique_ptr<gdal_source> open_gdal_source(const std::filesystem::path& native,
                                              const std::vector<wide_string>* siblings) {
    const reading_only scope;
    register_drivers();
    CPLStringList names;
    if (siblings)
        for (const wide_string& name : *siblings) names.AddString(platform::to_utf8(name).c_str());
    constexpr unsigned kinds = GDAL_OF_READONLY | GDAL_OF_RASTER | GDAL_OF_VECTOR;
    const std::string name = native.string();
    const auto open_with = [&](const char* const* drivers) {
        return data_set_handle(GDALOpenEx(name.c_str(), kinds, drivers, nullptr, names.List()));
    };
    const char* const likely[] = {likely_driver(native), nullptr};
    data_set_handle opened = likely[0] != nullptr ? open_with(likely) : nullptr;
    // The extension may be wrong, so all drivers are asked then.
    if (!opened) opened = open_with(nullptr);
    if (!opened) return nullptr;
    return std::make_unique<opened_source>(std::move(opened));
}

} // namespace vestra::datasets
