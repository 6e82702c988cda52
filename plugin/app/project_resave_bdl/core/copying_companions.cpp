// The companions that belong to a file by their names.
#include <algorithm>
#include <stdexcept>

#include "core/copying.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "operations/run/path_placement.h"
#include "platform/path_text.h"

namespace vs::project_resave {

namespace {

// Dot, first and third letter of the main file's extension; a "w" or an "r" makes it whole.
wide_string world_extension(const wide_string& path) {
    const wide_string extension = path_extension(path);
    if (extension.size() < 3) throw std::out_of_range("invalid string position");
    wide_string result = extension.substr(0, 2);
    if (extension.size() > 3) result += extension[3];
    return result;
}

bool copy_if_there(const wide_string& source, const wide_string& target, project_context& context) {
    return !path_exists(source) || copy_one(source, target, context);
}

} // namespace

wide_string projection_file_name(const wide_string& path) {
    wide_string suffix = path_extension(path);
    std::ranges::replace(suffix, u'.', u'_');
    return path_replace_extension(path_add_to_stem(path, suffix), u".pj4");
}

bool copy_code_page_file(const wide_string& source, const wide_string& target, path_placement& placement,
                         log_file& log, run_report& report) {
    const wide_string companion = path_replace_extension(source, u".cpg");
    if (!path_exists(companion)) return true;
    return copy_one(companion, path_replace_extension(target, u".cpg"), placement, log, report);
}

bool copy_code_page_file(const wide_string& source, const wide_string& target, project_context& context) {
    return copy_code_page_file(source, target, context.placement, context.log, context.report);
}

bool copy_table(const wide_string& source, const wide_string& target, path_placement& placement,
                log_file& log, run_report& report) {
    copy_one(source, target, placement, log, report);
    copy_code_page_file(source, target, placement, log, report);
    return true;
}

bool copy_table(const wide_string& source, const wide_string& target, project_context& context) {
    return copy_table(source, target, context.placement, context.log, context.report);
}

bool copy_projection_file(const wide_string& source, const wide_string& target, project_context& context) {
    const wide_string companion = projection_file_name(source);
    if (!path_exists(companion) || context.placement.is_placed(companion)) return true;
    return copy_one(companion, projection_file_name(target), context);
}

bool copy_overview_file(const wide_string& source, const wide_string& target, project_context& context) {
    const wide_string companion = source + u".ovr";
    return path_exists(companion) && copy_one(companion, target + u".ovr", context);
}

bool copy_world_files(const wide_string& source, const wide_string& target, project_context& context) {
    const wide_string extension = world_extension(source);
    for (const char16_t last : {u'w', u'r'}) {
        const wide_string companion = path_replace_extension(source, extension + last);
        if (!copy_if_there(companion, path_replace_extension(target, extension + last), context))
            return false;
    }
    return true;
}

std::vector<wide_string> companion_files(const wide_string& path) {
    std::vector<wide_string> all{projection_file_name(path), path + u".ovr"};
    for (const wide_view extension : {u".cpg", u".shx", u".dbf"})
        all.push_back(path_replace_extension(path, wide_string(extension)));
    if (path_extension(path).size() < 3) return all;
    for (const char16_t last : {u'w', u'r'})
        all.push_back(path_replace_extension(path, world_extension(path) + last));
    return all;
}

bool copy_table_and_joins(vs_attr_data* attr_data, const wide_string& source, const wide_string& target,
                          project_context& context) {
    copy_table(source, target, context);
    context.deferred_joins_.take_off(attr_data);
    return true;
}

bool copy_shape_family(const wide_string& source, const wide_string& target, vs_attr_data* attr_data,
                       project_context& context) {
    copy_one(source, target, context);
    copy_one(path_replace_extension(source, u".shx"), path_replace_extension(target, u".shx"), context);
    if (attr_data) {
        copy_table_and_joins(attr_data, path_replace_extension(source, u".dbf"),
                             path_replace_extension(target, u".dbf"), context);
    }
    copy_projection_file(source, target, context);
    return true;
}

} // namespace vs::project_resave
