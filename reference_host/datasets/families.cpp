// Finds the files of a data set by their names, with a cache of the sorted names of each folder.
#include "reference_host/datasets/families.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <unordered_map>
#include <unordered_set>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::datasets {

using namespace vs::project_resave;

namespace {

// True if the file begins with the number that every shape file has. Its extension proves nothing.
bool has_shape_mark(const wide_string& path) {
    std::unique_ptr<platform::file> file;
    const auto opened = platform::current_system().open(path, platform::access::read,
                                                        platform::disposition::open_existing, file);
    std::array<unsigned char, 4> first{};
    constexpr std::array<unsigned char, 4> mark{0x00, 0x00, 0x27, 0x0a};
    return opened && file->read_whole(first.data(), first.size()) && first == mark;
}

// A file is opened once to learn what it is, as long as its size and time stay the same. Its path, size and
// time are kept as one number: two of them that are equal by chance are not to be expected.
bool is_shape_file(const wide_string& path) {
    static std::unordered_set<std::uint64_t> known;
    const platform::entry_status now = platform::current_system().status_of(path);
    if (now.kind != platform::entry_kind::file) return false;
    std::uint64_t number = std::hash<wide_string>()(path);
    for (const std::uint64_t part : {now.bytes, static_cast<std::uint64_t>(now.modified)})
        number = (number ^ part) * 0x9E3779B97F4A7C15U ^ (number >> 29);
    if (known.contains(number)) return true;
    const bool is_shape = has_shape_mark(path);
    // Only positive answers are kept: other files are opened by the next format anyway.
    if (is_shape) known.insert(number);
    return is_shape;
}

std::vector<platform::folder_entry> entries_of(const wide_string& folder) {
    return platform::entries_or_none(platform::current_system(), folder);
}

// Returns the file name up to its last dot, which may be its first character.
wide_string stem_of(const wide_string& path) { return path_file_name(path_replace_extension(path, {})); }

bool is_same_name(wide_view a, wide_view b) { return platform::compare_no_case(a, b) == 0; }

// The file names of one folder, sorted without regard to letter case, so that the files of a family are
// neighbours. They are read through the current system, unlike the spelling cache of platform/posix.
class sorted_names {
public:
    explicit sorted_names(const wide_string& folder) { read(folder); }

    // True as long as the folder has not changed since it was read. Two changes in quick succession can leave
    // the same time on the folder, so its last change must be older than one step of that clock.
    bool is_current(std::filesystem::file_time_type folder_time) const {
        return folder_time == changed_ && changed_ + platform::folder_time_step < read_at_;
    }

    void read(const wide_string& folder) {
        read_at_ = std::filesystem::file_time_type::clock::now();
        changed_ = platform::current_system().time_of_folder(folder);
        names_.clear();
        for (auto& entry : entries_of(folder))
            if (!entry.is_folder) names_.push_back(std::move(entry.name));
        std::ranges::stable_sort(names_, is_before);
    }

    std::size_t count() const { return names_.size(); }

    // Returns the names that equal `beginning` or continue it with a dot. Names that continue it with a
    // character below the dot, such as "-", are sorted between the two groups.
    std::vector<wide_string> beginning_with(const wide_string& beginning) const {
        auto next = std::ranges::lower_bound(names_, beginning, is_before);
        std::vector<wide_string> found;
        for (; next != names_.end() && is_same_name(*next, beginning); ++next) found.push_back(*next);
        const wide_string with_dot = beginning + u'.';
        next = std::ranges::lower_bound(names_, with_dot, is_before);
        for (; next != names_.end() && is_same_name(wide_view(*next).substr(0, with_dot.size()), with_dot);
             ++next)
            found.push_back(*next);
        return found;
    }

private:
    static bool is_before(wide_view a, wide_view b) { return platform::compare_no_case(a, b) < 0; }

    std::vector<wide_string> names_;
    std::filesystem::file_time_type changed_;
    std::filesystem::file_time_type read_at_;
};

// A format whose files have one stem. A row is used only if all files of the stem are in it.
struct known_format {
    wide_view extension;
    std::initializer_list<wide_view> others; // instead of the extension, in the order of the library
    bool has_metadata_in_folder = false;     // under names that have nothing to do with the stem
};

const known_format known_formats[] = {{u".dbf", {u".cpg"}},
                                      {u".geojson", {}},
                                      {u".csv", {}},
                                      {u".gpkg", {}},
                                      {u".tif", {u".tfw"}, true},
                                      {u".tiff", {u".tfw"}, true},
                                      {u".png", {u".pgw"}, true},
                                      {u".jpg", {u".jgw"}, true}};

constexpr std::size_t most_in_a_small_folder = 1000;

sorted_names& names_in(const wide_string& folder) {
    // Kept until the process ends: a run asks for the same folders again and again.
    static std::unordered_map<wide_string, sorted_names> folders;
    const auto [row, is_new] = folders.try_emplace(folder, folder);
    if (!is_new && !row->second.is_current(platform::current_system().time_of_folder(folder)))
        row->second.read(folder);
    return row->second;
}

} // namespace

std::optional<file_list> shape_family(const wide_string& path) {
    if (!is_shape_file(path)) return std::nullopt;
    const wide_string folder = path_head(path), stem = stem_of(path);
    file_list files{path};
    const std::vector<wide_string> near = names_in(folder).beginning_with(stem);
    for (const wide_view extension :
         {u".shx", u".dbf", u".cpg", u".prj", u".qix", u".sbn", u".sbx", u".shp.xml"}) {
        const wide_string name = stem + wide_string(extension);
        // On a disk with names that differ only in case, each main file has its own companions.
        auto found = std::ranges::find(near, name);
        if (found == near.end())
            found = std::ranges::find_if(near,
                                         [&](const wide_string& other) { return is_same_name(other, name); });
        if (found != near.end()) files.push_back(folder + *found);
    }
    return files;
}

file_list grid_family(const wide_string& path) {
    const wide_string folder = path_head(path), own_name = path_file_name(path);
    file_list files{path};
    // The folder without its separator, to take its name.
    const wide_view bare = wide_view(folder).substr(0, folder.find_last_not_of(path_separators) + 1);
    if (!is_same_name(path_file_name(bare), stem_of(path))) return files;
    for (const auto& entry : entries_of(folder))
        if (!entry.is_folder && !is_same_name(entry.name, own_name)) files.push_back(folder + entry.name);
    return files;
}

file_list same_stem_family(const wide_string& path) {
    const wide_string folder = path_head(path), own_name = path_file_name(path), stem = stem_of(path);
    file_list files{path};
    for (const wide_string& name : names_in(folder).beginning_with(stem))
        if (!is_same_name(name, own_name) && is_same_name(stem_of(folder + name), stem))
            files.push_back(folder + name);
    return files;
}

std::optional<file_list> known_family(const wide_string& path) {
    const wide_string folder = path_head(path), own_name = path_file_name(path), stem = stem_of(path);
    const wide_view extension = wide_view(own_name).substr(stem.size());
    const auto* const format = std::ranges::find_if(
        known_formats, [&](const known_format& each) { return is_same_name(each.extension, extension); });
    if (format == std::end(known_formats)) return std::nullopt;
    const sorted_names& names = names_in(folder);
    if (format->has_metadata_in_folder && names.count() <= most_in_a_small_folder) return std::nullopt;
    file_list files{path};
    const std::vector<wide_string> near = names.beginning_with(stem);
    for (const wide_view other : format->others)
        for (const wide_string& name : near)
            if (is_same_name(name, stem + wide_string(other))) files.push_back(folder + name);
    // Also false if the folder cannot be read, or has two spellings of a name.
    return near.size() == files.size() ? std::optional(std::move(files)) : std::nullopt;
}

std::optional<std::vector<wide_string>> near_names_in_large_folder(const wide_string& path) {
    const sorted_names& names = names_in(path_head(path));
    if (names.count() <= most_in_a_small_folder) return std::nullopt;
    return names.beginning_with(stem_of(path));
}

} // namespace vestra::datasets
