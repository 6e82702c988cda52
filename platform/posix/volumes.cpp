// Drive letters on POSIX, where there are none: a table maps each letter to a folder, and names are looked up
// without letter case as they are on the bundle's first target.

#include "platform/posix/volumes.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <climits>
#include <cstdlib>
#include <filesystem>
#include <functional>
#include <set>
#include <utility>

#include "platform/path_text.h"
#include "platform/posix/native_paths.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vs::project_resave::platform {

namespace {

bool is_letter(char c) { return (c >= 'A' && c <= 'Z') || (c >= 'a' && c <= 'z'); }
size_t drive_index(char16_t letter) { return static_cast<size_t>((letter | 0x20) - 'a'); }

constexpr const char16_t* not_a_drive = u"expected a letter, \"=\" and an existing folder";
// Calls `visit` with each entry of the variable until it returns false. Returns false in that case, else
// true.
bool for_each_assignment(const std::function<bool(std::string_view)>& visit) {
    const char* const variable = std::getenv("VESTRA_DRIVES");
    std::string_view rest = variable != nullptr ? variable : "";
    while (!rest.empty()) {
        const size_t end = std::min(rest.find(';'), rest.size());
        if (!visit(rest.substr(0, end))) return false;
        rest.remove_prefix(std::min(end + 1, rest.size()));
    }
    return true;
}

native_answer refused(const char16_t* reason) { return {{}, outcome::because(reason)}; }

} // namespace

volumes::volumes() { reset(); }

void volumes::reset() {
    {
        const std::lock_guard guard(mutex_);
        drives_.fill({});
        // So that every native path also has a form with a drive.
        drives_[drive_index('Z')] = "/";
        names_.clear();
        held_.clear();
    }
    // Wrong assignments are skipped here; check_drive_variable reports them to the user.
    for_each_assignment([this](std::string_view assignment) {
        add_assignment(assignment);
        return true;
    });
}

outcome volumes::add(char letter, const std::string& folder) {
    if (!is_letter(letter)) return outcome::because(not_a_drive);
    struct stat found {};
    if (::stat(folder.c_str(), &found) != 0) return outcome::last();
    if (!S_ISDIR(found.st_mode)) return outcome::native(ENOTDIR);
    const std::lock_guard guard(mutex_);
    drives_[drive_index(letter)] = absolute(folder);
    return {};
}

outcome volumes::add_assignment(std::string_view assignment) {
    const bool has_form = assignment.size() > 2 && assignment[1] == '=';
    return has_form ? add(assignment[0], std::string(assignment.substr(2))) : outcome::because(not_a_drive);
}

std::string volumes::assignments() const {
    const std::lock_guard guard(mutex_);
    std::string all;
    for (size_t i = 0; i < drives_.size(); ++i)
        if (!drives_[i].empty()) all += static_cast<char>('A' + i) + ("=" + drives_[i] + ";");
    return all;
}

native_answer volumes::as_asked(const wide_string& drive_path) const {
    const wide_view path = drive_path;
    const bool is_network_path = path.size() > 1 && is_separator(path[0]) && is_separator(path[1]);
    // Each refusal has its own words: none of these is a failure of the disk.
    if (path.empty()) return refused(u"the path is empty");
    if (is_network_path) return refused(u"network paths are not supported on this operating system");
    // The operating system would cut the path off there and reach another file.
    if (path.find(u'\0') != wide_view::npos) return refused(u"the path has a zero character");

    const std::lock_guard guard(mutex_);
    std::string exact;
    if (!path_root(path).empty()) {
        const std::string& drive = drives_[drive_index(path[0])];
        if (drive.empty()) return refused(u"no folder is assigned to the drive");
        // ".." stops at the drive's folder, so no path leaves its drive.
        exact = below(drive, to_utf8(path.substr(2)));
    } else if (is_separator(path[0])) {
        exact = below("/", to_utf8(path));
    } else {
        const std::string current = absolute(".");
        if (current.empty()) return refused(u"the current folder is gone");
        exact = below("/", current + "/" + to_utf8(path));
    }
    if (exact.size() >= PATH_MAX) return {{}, outcome::native(ENAMETOOLONG)};
    return {std::move(exact), {}};
}

native_answer volumes::native(const wide_string& drive_path, bool must_exist) {
    native_answer asked = as_asked(drive_path);
    if (!asked) return asked;
    outcome exists;
    std::string found = spelled(asked.path, exists);
    return {std::move(found), must_exist ? exists : outcome()};
}

std::optional<std::string> volumes::as_listed(const std::string& asked) {
    bool exists = false;
    std::string found = spelled_by_listing(asked, exists);
    return exists ? std::optional(std::move(found)) : std::nullopt;
}

outcome volumes::status(const wide_string& drive_path, struct stat& found, held_folders::link_state& link) {
    const auto asked = as_asked(drive_path);
    if (!asked) return asked.result;
    const outcome result = held_.status(asked.path, found, link);
    if (result) return result;
    const auto listed = as_listed(asked.path);
    return listed ? held_.status(*listed, found, link) : result;
}

native_answer volumes::to_create(const wide_string& drive_path) {
    native_answer asked = as_asked(drive_path);
    if (asked) asked.path = spelled_by_listing(std::string(asked.path), asked.exists);
    return asked;
}

// Returns the path in the spelling of the entries that exist, as far as they do.
std::string volumes::spelled(const std::string& native, outcome& exists) {
    // Most paths are spelled as on the disk, and one call proves it without reading a folder.
    exists = native == "/" ? outcome() : outcome::of_call(exists_exactly(native));
    if (exists) return native;
    bool is_listed = false;
    std::string found = spelled_by_listing(native, is_listed);
    if (is_listed) exists = {};
    return found;
}

std::string volumes::spelled_by_listing(const std::string& native, bool& exists) {
    std::string folder(folder_of(native));
    const std::string_view name = name_of(native);
    bool is_folder = false;
    auto entry = names_.find(folder, name, is_folder);
    // Maybe only the folder's own spelling differs: it is looked up in the same way, from the top down.
    if (!is_folder && folder != "/") {
        outcome folder_exists;
        folder = spelled(folder, folder_exists);
        if (folder_exists) entry = names_.find(folder, name, is_folder);
    }
    exists = entry.has_value();
    return joined(folder, entry ? std::string_view(*entry) : name);
}

wide_string volumes::drive_path(const std::string& native) const {
    const std::string path = absolute(native);
    if (path.empty()) return {};
    const std::lock_guard guard(mutex_);
    // Drives can be nested; the longest folder that holds the path wins.
    size_t best = drive_index('Z');
    size_t best_length = 0;
    for (size_t i = 0; i < drives_.size(); ++i) {
        const std::string& folder = drives_[i];
        // Whole names only: /data does not hold what is in /database.
        const bool holds =
            path.starts_with(folder) &&
            (folder.ends_with('/') || path.size() == folder.size() || path[folder.size()] == '/');
        if (folder.empty() || !holds || folder.size() <= best_length) continue;
        best = i;
        best_length = folder.size();
    }
    std::string_view rest = std::string_view(path).substr(best_length);
    if (rest.starts_with('/')) rest.remove_prefix(1);
    std::string result{static_cast<char>('A' + best), ':', '\\'};
    result.append(rest);
    std::ranges::replace(result, '/', '\\');
    return from_utf8(result);
}

volumes& mapped_volumes() {
    static volumes own;
    return own;
}

// For the user: replacing Z: would make every path outside the other drives unreachable.
bool add_drive(std::string_view assignment, std::string& message) {
    const std::string text(assignment);
    const bool is_root_drive =
        text.size() > 2 && drive_index(static_cast<char16_t>(text[0])) == drive_index('Z');
    if (is_root_drive && text[1] == '=' && absolute(text.substr(2)) != "/") {
        message =
            "drive Z: is the root folder and cannot be another one: \"" + text + "\"; take another letter";
        return false;
    }
    const outcome added = mapped_volumes().add_assignment(assignment);
    if (!added) message = "not a drive: \"" + text + "\": " + to_utf8(added.text());
    return bool(added);
}

bool check_drive_variable(std::string& message) {
    std::set<char16_t> letters;
    return for_each_assignment([&](std::string_view assignment) {
        const bool is_new =
            assignment.empty() || letters.insert(static_cast<char16_t>(assignment[0] | 0x20)).second;
        if (assignment.empty() || (is_new && add_drive(assignment, message))) return true;
        if (!is_new) message = "a drive is mapped twice: \"" + std::string(assignment) + "\"";
        message = "VESTRA_DRIVES: " + message;
        return false;
    });
}

wide_string drive_path(std::string_view argument) {
    if (argument.empty()) return {};
    wide_string typed = from_utf8(argument);
    // A typed drive is taken as it is, even if no folder is assigned to it.
    if (!path_root(typed).empty()) return typed;
    return mapped_volumes().drive_path(std::string(argument));
}

outcome set_current_folder(const wide_string& folder) {
    const auto native = mapped_volumes().native(folder, true);
    return native ? outcome::of_call(::chdir(native.path.c_str()) == 0) : native.result;
}

std::filesystem::file_time_type folder_time(const wide_string& folder) {
    using namespace std::chrono;
    struct stat status {};
    held_folders::link_state link{};
    if (!mapped_volumes().status(folder, status, link)) return std::filesystem::file_time_type::min();
    const nanoseconds since_epoch = seconds(status.st_mtim.tv_sec) + nanoseconds(status.st_mtim.tv_nsec);
    return file_clock::from_sys(sys_time<nanoseconds>(since_epoch));
}

std::filesystem::path native_path(const wide_string& path) {
    return mapped_volumes().native(path, false).path;
}

// Converting twice replaces bytes that are not UTF-8.
std::string native_text(const wide_string& path) {
    return to_utf8(from_utf8(mapped_volumes().native(path, false).path));
}

} // namespace vs::project_resave::platform
