// Opens a data set: tries the host's own formats first, then file names, then the geodata library.
#include "reference_host/datasets/open_source.h"

#include <algorithm>
#include <utility>

#include "framework/border/ref.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/datasets/families.h"
#include "reference_host/datasets/gdal_source.h"
#include "reference_host/datasets/tos_reader.h"
#include "reference_host/model/counted.h"

namespace vestra::datasets {

using namespace vs::project_resave;

namespace {

// The source of a data set's records.
struct record_source {
    std::unique_ptr<gdal_source> opened;
    wide_string unopened; // a path; opened when the first record is requested
};

class open_data_set final : public referent<stat_source_impl>, counted {
public:
    open_data_set(file_list files, record_source records)
        : files_(std::move(files)), records_(std::move(records)) {}

    void files(string_visitor visitor) override {
        for (const wide_string& file : files_) tell(visitor, file);
    }
    std::int32_t find_field(const char16_t* name) override {
        return name != nullptr && records() ? records()->find_field(name) : -1;
    }
    bool first() override { return records() && records()->first(); }
    bool next() override { return records() && records()->next(); }
    void field_text(std::int32_t field, string_visitor visitor) override {
        tell(visitor, records() ? records()->field_text(field) : wide_string());
    }

private:
    gdal_source* records() {
        // Most data sets are only asked for their files, and opening one costs more than listing it.
        if (!records_.unopened.empty())
            records_.opened = open_gdal_source(platform::native_path(std::exchange(records_.unopened, {})));
        return records_.opened.get();
    }

    file_list files_;
    record_source records_;
};

identity_pointer make(file_list files, record_source records = {}) {
    // Without a ref: the caller takes the first one.
    stat_source_impl* const fresh = new open_data_set(std::move(files), std::move(records));
    return identity_of(*fresh);
}

// Converts native paths of the library to paths in the requested folder.
class asked_place {
public:
    asked_place(const wide_string& path, std::filesystem::path native, bool is_folder)
        : path_(path), native_(std::move(native)), is_folder_(is_folder) {
        head_ = path_with_separator(is_folder ? path : path_head(path));
    }

    wide_string asked_path(const std::filesystem::path& file) const {
        // The library's native paths have the spelling of the disk; the project keeps the one it has.
        if (file == native_) return path_;
        const auto below = file.lexically_relative(is_folder_ ? native_ : native_.parent_path());
        // A data set may refer to files outside of its folder.
        if (below.empty() || *below.begin() == "..") return platform::drive_path(file.string());
        const std::u8string bytes = below.u8string();
        wide_string rest = platform::from_utf8({reinterpret_cast<const char*>(bytes.data()), bytes.size()});
        std::ranges::replace(rest, u'/', u'\\');
        return head_ + rest;
    }

private:
    wide_string path_;
    std::filesystem::path native_;
    bool is_folder_;
    wide_string head_;
};

file_list asked_paths(gdal_source& known, const asked_place& place) {
    file_list files;
    for (const auto& file : known.files()) files.push_back(place.asked_path(file));
    return files;
}

bool has_extension(const wide_string& path, std::initializer_list<wide_view> extensions) {
    return std::ranges::any_of(extensions, [&](wide_view other) {
        return platform::compare_no_case(path_replace_extension(path, other), path) == 0;
    });
}

identity_pointer open_tos(const wide_string& path, files::file_error* error) {
    const auto content = read_tos(path, error);
    if (!content) return {};
    file_list files{path};
    for (wide_string member : content->members) {
        std::ranges::replace(member, u'/', u'\\');
        files.push_back(path_head(path) + member);
    }
    return make(std::move(files));
}

// For some formats the library lists the folder itself; the files come in the order of the disk.
identity_pointer open_folder(const wide_string& path) {
    const auto native = platform::native_path(path);
    auto known = open_gdal_source(native);
    if (!known) return {};
    file_list files = asked_paths(*known, asked_place(path, native, true));
    // The folder itself is no file.
    std::erase(files, path);
    std::ranges::sort(files);
    return make(std::move(files), {std::move(known), {}});
}

identity_pointer open_file(const wide_string& path, files::file_error* error) {
    // A damaged TOS file is an error: as an unknown file it would lose its members without a word.
    if (has_extension(path, {u".tos"})) return open_tos(path, error);
    if (has_extension(path, {u".pgrid"})) return make(grid_family(path));
    if (has_extension(path, {u".sgy", u".segy", u".sec"})) return make({path});

    if (auto files = known_family(path)) return make(std::move(*files), {nullptr, path});

    const auto native = platform::native_path(path);
    // The library reads the whole folder for each file to find companions, which is slow for thousands of
    // files in one folder.
    const auto siblings = near_names_in_large_folder(path);
    if (auto known = open_gdal_source(native, siblings ? &*siblings : nullptr)) {
        file_list files = asked_paths(*known, asked_place(path, native, false));
        // In case the driver does not list the file itself.
        if (std::ranges::find(files, path) == files.end()) files.insert(files.begin(), path);
        return make(std::move(files), {std::move(known), {}});
    }
    return make(same_stem_family(path));
}

} // namespace

identity_pointer open_source(wide_view source, const table_data* data, files::file_error* error) {
    const wide_string path = source.empty() && data ? data->file : wide_string(source);
    if (has_extension(path, {u".shp"})) // most shape files exist, and reading their first bytes proves it
        if (auto files = shape_family(path)) return make(std::move(*files), {nullptr, path});
    const platform::entry_status status = platform::current_system().status_of(path);
    if (status.kind == platform::entry_kind::file) return open_file(path, error);
    if (status.kind == platform::entry_kind::folder) return open_folder(path);
    if (error && !status.reason.is(platform::failure::missing)) *error = {path, 0, status.reason.text()};
    return {};
}

} // namespace vestra::datasets
