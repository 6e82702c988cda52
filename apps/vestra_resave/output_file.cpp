#include "apps/vestra_resave/output_file.h"

#include <algorithm>
#include <unordered_set>

#include "apps/vestra_resave/data_set_files.h"
#include "apps/vestra_resave/folder_files.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

std::optional<refusal> protect_project_files(const std::vector<wide_string>& paths,
                                             project_context& context) {
    refusal early;
    for (const wide_string& path : paths)
        if (context.guard.protects(path))
            early.problems.push_back(
                refused(path, say("is a file of the project and must not be written over")).problems.front());
    return early.problems.empty() ? std::nullopt : std::optional(std::move(early));
}

bool is_same_file(const wide_string& one, const wide_string& other) {
    return path_same(one, other) || platform::current_system().same_file(one, other);
}

std::optional<refusal> refuse_output(const std::string& typed) {
    if (auto early = refuse_share(typed)) return early;
    const wide_string path = platform::drive_path(typed);
    platform::system& disk = platform::current_system();
    const platform::entry_kind kind = disk.kind_of(path);
    constexpr char16_t stand_in = 0xFFFD; // for bytes that are not UTF-8
    if (kind == platform::entry_kind::none && path.find(stand_in) != wide_string::npos)
        return refused(path, say("the name is not UTF-8; give another one"));
    if (kind == platform::entry_kind::folder)
        return refused(path, say("is a folder; give the name of a file"));
    wide_string name;
    if (kind == platform::entry_kind::none && disk.true_name(path_head(path), path_file_name(path), name))
        return refused(path,
                       say("is a device, a pipe or a link that leads nowhere; give the name of a file"));
    return std::nullopt;
}

namespace {

// True if a file exists at the path that, under some name, begins with the stem of a source file next to it,
// or is read by one. The guard knows only the names of usual companions; this asks the disk and the formats.
bool is_of_data_set(const wide_string& path, const project_context& context) {
    platform::system& disk = platform::current_system();
    const platform::file_identity asked = disk.identity_of(path);
    if (!asked) return false;
    const auto is_asked = [&](const wide_string& other) { return disk.identity_of(other) == asked; };
    listed_folders folders;
    std::unordered_set<wide_string> seen;
    for (const wide_string& source : context.sizes.known_paths()) {
        if (path_extension(source).starts_with(u"._")) continue; // a file of the host has no companions
        const wide_string head = path_head(source), stem = path_stem(source);
        if (seen.insert(path_key(head + stem)).second)
            for (const wide_string& name : folders.files_of(head).beginning_with(stem))
                if (is_asked(head + name)) return true;
        for (const auto& each : virtual_sources(source))
            if (is_asked(each.path)) return true;
    }
    return false;
}

} // namespace

std::optional<refusal> create_text_file(const wide_string& path, project_context& context) {
    if (is_same_file(path, context.placement.source_project_path))
        return refused(path, say("is the project itself and must not be written over"));
    platform::system& files = platform::current_system();
    if (auto early = protect_project_files({path}, context)) return early;
    if (is_of_data_set(path, context))
        return refused(path, say("is a file of the project and must not be written over"));
    std::unique_ptr<platform::file> created;
    const platform::outcome opened =
        files.open(path, platform::access::read_write, platform::disposition::create_always, created);
    if (opened) return std::nullopt;
    return refusal{not_saved,
                   {{own_kind::not_created, {}, {}, as_on_disk(path), reason_of(opened.text(), path)}}};
}

} // namespace vestra::command
