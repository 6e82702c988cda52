// Writes the page, after checking that it does not replace or pose as a file of the project.
#include "apps/vestra_resave/report/page_file.h"

#include <algorithm>

#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/report/page_facts.h"
#include "apps/vestra_resave/report/page_html.h"
#include "apps/vestra_resave/words.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "platform/path_text.h"
#include "platform/text.h"
#include "platform/volumes.h"
#include "reference_host/files/files.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

// True if the page would replace a file that it lists. Names are compared and not identities, because a trial
// lists files that do not exist; the folder can be reached through a link.
bool is_in_the_way(const wide_string& path, const page_facts& facts) {
    const wide_string name = path_key(path_file_name(path));
    const auto is_it = [&](const wide_string& other) {
        return name == path_key(path_file_name(other)) && share_folder(path, other);
    };
    return is_it(facts.project) || is_it(facts.new_project) ||
           std::ranges::any_of(
               facts.files,
               [&](const page_file& each) { return is_it(each.source) || is_it(each.target); }) ||
           std::ranges::any_of(facts.problems,
                               [&](const problem& each) { return is_it(each.path) || is_it(each.new_path); });
}

problem not_created(const wide_string& path, const wide_string& reason) {
    return {own_kind::not_created, {}, {}, path, reason};
}

} // namespace

std::optional<refusal> refuse_page(const std::string& typed, project_context& context,
                                   const wide_string& new_project) {
    if (auto early = refuse_output(typed)) return early;
    const wide_string path = platform::drive_path(typed), folder = path_head(path);
    const wide_string extension = platform::folded(path_extension(path));
    if (extension != u".html" && extension != u".htm")
        return refused(path, say("is not a valid report name: it must end in %1", {".html"}));
    // The resave creates the folders of the new project, so the page may be in one of them.
    const bool is_made = !new_project.empty() && path_key(path_with_separator(path_head(new_project)))
                                                     .starts_with(path_key(path_with_separator(folder)));
    if (!is_made && !path_exists(folder))
        return refused(path, say("the folder for the report does not exist"));
    if (!new_project.empty() && is_same_file(path, new_project))
        return refused(path, say("the new project has the same name"));
    if (auto early = refuse_project_file(path, context)) return early;
    return refuse_data_name(path, context);
}

std::vector<problem> write_page(const std::string& typed, const page_facts& facts) {
    const wide_string path = platform::drive_path(typed);
    if (is_in_the_way(path, facts)) return {not_created(path, u"another file has this name")};
    // Not for project files: "area.html" next to "area._vp" is the usual place of a page.
    for (const page_file& each : facts.files)
        if (!each.target.empty() && !path_same(each.target, facts.new_project) &&
            !path_same(each.target, facts.project) && is_named_as(path, each.target))
            return {not_created(path, platform::from_utf8(say(passes_for_data)))};
    const std::string page = html_of(facts);
    const platform::outcome written =
        files::replace_file(path, [&](platform::file& file) { return file.write(page.data(), page.size()); });
    if (written) return {};
    return {not_created(as_on_disk(path), reason_of(written.text(), path))};
}

} // namespace vestra::command
