// File look-ups and path rules of a run that several units share.

#include "operations/run/path_files.h"

#include <algorithm>
#include <stdexcept>

#include "platform/path_text.h"

namespace vs::project_resave {

bool path_exists(const wide_string& path) {
    return platform::current_system().kind_of(path) != platform::entry_kind::none;
}

bool is_name_taken(const wide_string& path) {
    return path_exists(path) || platform::current_system().identity_of(path).names > 0;
}

bool append_if_exists(const wide_string& path, std::vector<found_file>& out) {
    const platform::entry_status status = platform::current_system().status_of(path);
    if (status.kind == platform::entry_kind::none) return false;
    out.emplace_back(path, status);
    return true;
}

static platform::outcome create_levels(const wide_string& path, std::vector<wide_string>* made) {
    platform::system& files = platform::current_system();
    const platform::entry_kind kind = files.kind_of(path);
    if (kind == platform::entry_kind::folder) return {};
    if (kind == platform::entry_kind::file) return platform::failure::taken;

    wide_string level = path.substr(0, path_fixed_length(path));
    for (const wide_string& piece : path_split(wide_view(path).substr(level.size()), path_separators, true)) {
        level.append(piece).push_back(u'\\');
        if (path_exists(level)) continue;
        const platform::outcome created = files.create_folder(level);
        if (!created && !path_exists(level)) return created; // another process may have created it meanwhile
        if (created && made) made->push_back(level);
    }
    return path_exists(level) ? platform::outcome() : platform::failure::missing;
}

platform::outcome create_folders(const wide_string& path, std::vector<wide_string>* made) {
    constexpr int most_tries = 8;
    platform::outcome created = create_levels(path, made);
    // Another process whose run failed removes the folders that it created. Some may be levels of this path,
    // if they are still empty.
    for (int tries = 1; created.is(platform::failure::missing) && tries < most_tries; ++tries)
        created = create_levels(path, made);
    return created;
}

bool true_case_path(const wide_string& path, wide_string& result) {
    result.clear();
    wide_string copy = path;
    std::replace(copy.begin(), copy.end(), u'/', u'\\');
    if (copy.empty() || path_is_relative(copy) || !path_exists(copy)) return false;
    const wide_string drive = path_root(copy);
    if (drive.empty()) return false;

    wide_string spelled = drive;
    for (const wide_string& component : path_split(copy.substr(drive.size()), u"\\", true)) {
        wide_string spelling = component;
        platform::current_system().true_name(spelled + u"\\", component, spelling);
        spelled += u"\\" + spelling;
    }
    result = spelled;
    return true;
}

wide_string unique_path(const wide_string& path) {
    wide_string candidate = path;
    for (uint32_t n = 1; path_exists(candidate); ++n) candidate = path_add_to_stem(path, u"_" + decimal(n));
    return candidate;
}

bool has_own_folder(const wide_string& path) {
    return path_extension(path) == own_folder_extension &&
           path_same(path_file_name(path_normalise(path_head(path))), path_stem(path));
}

wide_string world_extension(const wide_string& path) {
    const wide_string extension = path_extension(path);
    // A shorter extension has no third letter; callers check this first.
    if (extension.size() < 3) throw std::out_of_range("the extension is too short for a world file");
    wide_string result = extension.substr(0, 2);
    if (extension.size() > 3) result += extension[3];
    return result;
}

wide_string projection_file_name(const wide_string& path) {
    wide_string suffix = path_extension(path);
    std::ranges::replace(suffix, u'.', u'_');
    return path_replace_extension(path_add_to_stem(path, suffix), u".pj4");
}

std::vector<wide_string> companion_files(const wide_string& path) {
    std::vector<wide_string> all{projection_file_name(path)};
    for (const wide_view end : {u".ovr", u".aux.xml", u".xml", u".msk", u"-wal", u"-shm", u"-journal"})
        all.push_back(path + wide_string(end));
    for (const wide_view extension :
         {u".cpg", u".shx", u".dbf", u".prj", u".qpj", u".qix", u".sbn", u".sbx", u".hdr", u".gfs", u".xsd",
          u".ind", u".tod", u".aux", u".rrd", u".stx", u".clr", u".wld"})
        all.push_back(path_replace_extension(path, extension));
    if (path_extension(path).size() < 3) return all;
    for (const char16_t last : {u'w', u'r'})
        all.push_back(path_replace_extension(path, world_extension(path) + last));
    return all;
}

} // namespace vs::project_resave
