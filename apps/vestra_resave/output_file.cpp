// Checks output paths, so that no file of a project is overwritten.
#include "apps/vestra_resave/output_file.h"

#include "apps/vestra_resave/referred_files.h"
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
                refused(path, say("is a file of the project and must not be overwritten")).problems.front());
    return early.problems.empty() ? std::nullopt : std::optional(std::move(early));
}

bool is_same_file(const wide_string& one, const wide_string& other) {
    return path_same(one, other) || platform::current_system().same_file(one, other);
}

bool is_same_project(const wide_string& one, const wide_string& other) {
    // Through a link in another folder relative references lead elsewhere, so it is another project.
    return path_same(one, other) || (is_same_file(one, other) && share_folder(one, other));
}

bool share_folder(const wide_string& one, const wide_string& other) {
    // By identity, because one of the folders may be reached through a link.
    return is_same_file(path_normalise(path_head(one)), path_normalise(path_head(other)));
}

bool is_named_as(const wide_string& path, const wide_string& file) {
    return path_key(path_file_name(path)).starts_with(path_key(path_stem(file)) + u'.') &&
           share_folder(path, file);
}

std::optional<refusal> refuse_output(const std::string& typed) {
    if (auto early = refuse_share(typed)) return early;
    const wide_string path = platform::drive_path(typed);
    platform::system& disk = platform::current_system();
    const platform::entry_kind kind = disk.kind_of(path);
    constexpr char16_t stand_in = 0xFFFD; // replaces bytes that are not UTF-8
    // The name of an existing file may really contain this character.
    if (kind == platform::entry_kind::none && path.find(stand_in) != wide_string::npos)
        return refused(path, say("the name is not UTF-8; give another one"));
    if (kind == platform::entry_kind::folder)
        return refused(path, say("is a folder; give the name of a file"));
    wide_string name;
    // Listed by its folder although it is neither a file nor a folder. Opening it would wait, or create a
    // file somewhere else.
    if (kind == platform::entry_kind::none && disk.true_name(path_head(path), path_file_name(path), name))
        return refused(path, say("is a device, a pipe or a dangling link; give the name of a file"));
    return std::nullopt;
}

std::optional<refusal> refuse_project_file(const wide_string& path, project_context& context) {
    if (is_same_file(path, context.placement.source_project_path))
        return refused(path, say("is the project itself and must not be overwritten"));
    if (auto early = protect_project_files({path}, context)) return early;
    // Last, because it lists all folders of the project.
    if (source_neighbours(context.sizes.known_paths()).contain(path))
        return refused(path, say("is a file of the project and must not be overwritten"));
    return std::nullopt;
}

std::optional<refusal> refuse_data_name(const wide_string& path, project_context& context) {
    for (const wide_string& each : context.sizes.known_paths())
        if (!path_same(each, context.placement.source_project_path) && is_named_as(path, each))
            return refused(path, say(passes_for_data));
    return std::nullopt;
}

std::optional<refusal> create_text_file(const wide_string& path, project_context& context) {
    if (auto early = refuse_project_file(path, context)) return early;
    platform::system& files = platform::current_system();
    std::unique_ptr<platform::file> created;
    const platform::outcome opened =
        files.open(path, platform::access::read_write, platform::disposition::create_always, created);
    if (opened) return std::nullopt;
    return refusal{not_saved,
                   {{own_kind::not_created, {}, {}, as_on_disk(path), reason_of(opened.text(), path)}}};
}

} // namespace vestra::command
