// Finds the files that a data set needs: by its format, by its own references, and by name.
#include "apps/vestra_resave/data_set_files.h"

#include <algorithm>
#include <pugixml.hpp>

#include "apps/vestra_resave/file_content.h"
#include "apps/vestra_resave/problems.h"
#include "core/data_source.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;
using platform::entry_kind;

namespace {

// Files without which the main file cannot be read, by extension. A format lists them only if they exist.
struct partner {
    wide_view extension, needed;
};
constexpr partner partners[] = {
    {u".shp", u".shx"}, {u".sdat", u".sgrd"}, {u".rst", u".rdc"}, {u".bil", u".hdr"}, {u".mif", u".mid"}};

bool has_extension(const wide_string& path, wide_view extension) {
    return platform::compare_no_case(path_extension(path), extension) == 0;
}

// True for the elements of a virtual data set whose texts are its sources.
bool is_source_element(std::string_view name) {
    return name == "SourceFilename" || name == "SourceDataset" || name == "SrcDataSource";
}

// True for a connection, or a source in memory or in an archive, instead of a path.
// A colon in the second place belongs to a drive; anywhere after that it separates a driver or the name of a
// layer.
bool is_no_path(std::string_view text) {
    return text.empty() || text.starts_with("/vsi") || text.starts_with('<') ||
           text.find("://") != std::string_view::npos || text.find(':', 2) != std::string_view::npos;
}

bool is_relative(const pugi::xml_node& source, std::string_view text) {
    // The attribute occurs in both spellings. Without it, a path that is not absolute counts as relative to
    // the file.
    for (const char* name : {"relativeToVRT", "relativetoVRT"})
        if (const pugi::xml_attribute flag = source.attribute(name)) return flag.as_bool();
    return !text.starts_with('/') && !text.starts_with('\\') && text.find(':') == std::string_view::npos;
}

// Returns the first bytes of a file; empty if it cannot be read.
std::string beginning_of(const wide_string& path) {
    // The signature can be after a declaration and a comment.
    std::string first(1024, '\0');
    size_t count = 0;
    std::unique_ptr<platform::file> file;
    if (!platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                         file) ||
        !file->read(first.data(), first.size(), count))
        return {};
    first.resize(count);
    return first;
}

bool is_virtual(std::string_view beginning) {
    return beginning.find("<VRTDataset") != std::string_view::npos ||
           beginning.find("<OGRVRTDataSource") != std::string_view::npos;
}

// Adds the data file of an ERS header: next to it, and named like it without the extension unless the header
// gives a name.
void add_ers_data(const wide_string& path, std::vector<data_set_files::needed>& files) {
    std::string text;
    if (!read_text(path, text)) return;
    wide_string name = path_stem(path);
    if (const size_t word = text.find("DataFile"); word != std::string::npos) {
        const std::string line = text.substr(word, text.find_first_of("\r\n", word) - word);
        const size_t first = line.find('"'), last = line.rfind('"');
        if (first != last) name = platform::from_utf8(line.substr(first + 1, last - first - 1));
    }
    files.push_back({path_head(path) + path_file_name(name)});
}

void add_virtual_sources(const wide_string& path, std::vector<data_set_files::needed>& files) {
    std::string text;
    pugi::xml_document document;
    if (!read_text(path, text) || !document.load_buffer(text.data(), text.size())) return;
    // Used to visit all nodes: the function never says that it has found one.
    document.find_node([&](const pugi::xml_node& node) {
        const std::string_view named = node.child_value();
        if (!is_source_element(node.name()) || is_no_path(named)) return false;
        wide_string file = platform::from_utf8(named);
        const bool relative = is_relative(node, named);
        if (relative) {
            std::ranges::replace(file, u'/', u'\\');
            file = path_resolve(path, file);
        } else {
            file = platform::drive_path(std::string(named));
        }
        files.push_back({std::move(file), !relative});
        return false;
    });
}

bool has_no_file(const wide_string& folder) {
    return std::ranges::all_of(platform::list_tree(platform::current_system(), folder),
                               [](const platform::tree_entry& entry) { return entry.is_folder; });
}

} // namespace

std::vector<wide_string> partners_of(const wide_string& path) {
    std::vector<wide_string> all;
    for (const partner& each : partners)
        if (has_extension(path, each.extension)) all.push_back(path_replace_extension(path, each.needed));
    return all;
}

data_set_files files_of_data_set(const wide_string& path) {
    data_set_files all;
    const platform::entry_status status = platform::current_system().status_of(path);
    const bool is_folder = status.kind == entry_kind::folder;
    all.is_empty = is_folder ? has_no_file(path) : status.bytes == 0;
    if (all.is_empty) return all;
    if (!is_folder)
        for (wide_string& partner : partners_of(path)) all.files.push_back({std::move(partner)});
    std::vector<wide_string> listed;
    const bool is_read = data_source_files(path, listed);
    if (!is_read) all.unread = read_error_of(path);
    // A shape file that could be read is binary, so its first bytes need not be examined.
    const bool is_text = !is_folder && !(is_read && has_extension(path, u".shp"));
    const std::string beginning = is_text ? beginning_of(path) : std::string();
    // Before the files that the format lists: these here know whether a path is absolute, and the first entry
    // of a file is kept.
    if (is_virtual(beginning)) add_virtual_sources(path, all.files);
    if (beginning.starts_with("DatasetHeader Begin")) add_ers_data(path, all.files);
    for (wide_string& file : listed) all.files.push_back({std::move(file)});
    // Keep one entry per file; the first one has more information.
    std::ranges::stable_sort(all.files, {}, [](const auto& each) { return path_key(each.path); });
    const auto is_same = [](const auto& one, const auto& other) { return path_same(one.path, other.path); };
    all.files.erase(std::unique(all.files.begin(), all.files.end(), is_same), all.files.end());
    std::erase_if(all.files, [&](const auto& each) { return path_same(each.path, path); });
    return all;
}

std::vector<data_set_files::needed> virtual_sources(const wide_string& path) {
    std::vector<data_set_files::needed> files;
    if (is_virtual(beginning_of(path))) add_virtual_sources(path, files);
    return files;
}

folder_walls::folder_walls(const wide_string& folder)
    : folder_(platform::native_path(path_normalise(folder)).lexically_normal()) {
    std::error_code unknown;
    home_ = std::filesystem::canonical(folder_, unknown);
    if (unknown) home_.clear();
}

bool folder_walls::leads_out(const wide_string& path) const {
    const platform::file_identity found = platform::current_system().identity_of(path);
    if (!found) return false; // what cannot be reached is missing
    std::error_code unknown;
    std::filesystem::path whole;
    if (found.is_link) {
        whole = std::filesystem::canonical(platform::native_path(path), unknown);
    } else {
        // Resolving a path costs a request for each of its levels, so it is done once for each folder.
        const auto [folder, is_new] = canonical_.try_emplace(path_normalise(path_head(path)));
        if (is_new)
            folder->second = std::filesystem::canonical(platform::native_path(folder->first), unknown);
        if (folder->second.empty()) return false; // not on the disk, for example in an archive
        whole = folder->second / "file";          // its own name does not matter
    }
    if (unknown || home_.empty()) return false;
    if (std::ranges::mismatch(home_, whole).in1 == home_.end()) return false;
    // The path may be spelled in another letter case on a disk that ignores it.
    for (auto level = whole.parent_path(); level != level.parent_path(); level = level.parent_path())
        if (std::filesystem::equivalent(level, home_, unknown)) return false;
    return true;
}

bool folder_walls::is_bound(const wide_string& path) const {
    constexpr int most_links = 40; // more links than this form a cycle
    std::error_code unknown;
    std::filesystem::path rest = platform::native_path(path).lexically_normal().lexically_relative(folder_);
    std::filesystem::path way;
    for (int links = 0; !rest.empty() && links < most_links;) {
        if (*rest.begin() == "..") return links > 0;
        way /= *rest.begin();
        // std::filesystem::path has no operation that removes its first part.
        std::filesystem::path behind;
        for (auto piece = std::next(rest.begin()); piece != rest.end(); ++piece) behind /= *piece;
        rest = std::move(behind);
        if (!std::filesystem::is_symlink(folder_ / way, unknown)) continue;
        const auto target = std::filesystem::read_symlink(folder_ / way, unknown);
        if (target.is_absolute()) return true;
        // Begins again at the top, because the target of the link can contain links and "..".
        rest = (way.parent_path() / target / rest).lexically_normal();
        way.clear();
        ++links;
    }
    return false;
}

} // namespace vestra::command
