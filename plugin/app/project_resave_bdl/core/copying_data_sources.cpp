// The members of a data set, as the host names them.
#include "core/copying.h"
#include "core/data_source.h"
#include "operations/project_context.h"
#include "operations/run/path_placement.h"
#include "platform/path_text.h"
#include "platform/text.h"

namespace vs::project_resave {

namespace {

wide_string replaced(wide_string text, const wide_string& from, const wide_string& to) {
    if (from.empty()) return text;
    for (size_t at = text.find(from); at != wide_string::npos; at = text.find(from, at + to.size()))
        text.replace(at, from.size(), to);
    return text;
}

} // namespace

bool copy_data_source_files(const wide_string& source, const wide_string& target, bool keep_case,
                            project_context& context) {
    std::vector<wide_string> members;
    if (!data_source_files(source, members)) return false;

    const wide_string source_folder = path_head(source);
    const wide_string target_folder = path_head(target);
    const wide_string source_stem = path_stem(source);
    const wide_string target_stem = path_stem(target);
    for (const wide_string& member : members) {
        if (context.placement.is_placed(member)) continue;
        wide_string place = path_join(target_folder, path_relative(source_folder, member));
        if (source_stem != target_stem)
            place = path_replace_stem(place, replaced(path_stem(place), source_stem, target_stem));
        if (context.options.lower_case && !keep_case) platform::lower_in_place(place);
        copy_one(member, place, context);
    }
    return true;
}

bool copy_tos_files(const wide_string& source, const wide_string& target, const wide_string& owner,
                    project_context& context) {
    const bool is_read = copy_data_source_files(source, target, true, context);
    if (!is_read) context.report.unread_files.push_back({owner, source});
    return is_read;
}

} // namespace vs::project_resave
