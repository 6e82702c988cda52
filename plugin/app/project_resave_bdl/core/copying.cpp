#include "core/copying.h"

#include "logs/log_file.h"
#include "operations/project_context.h"
#include "operations/run/path_files.h"
#include "operations/run/path_placement.h"
#include "operations/run/run_report.h"
#include "platform/path_text.h"
#include "platform/system.h"

namespace vs::project_resave {

namespace {

bool copy_file(const wide_string& source, const wide_string& target, bool replace = false) {
    return bool(platform::current_system().copy_file(source, target, replace));
}

wide_string with_separator(const wide_string& folder) {
    return !folder.empty() && is_separator(folder.back()) ? folder : folder + u'\\';
}

wide_string folder_of_same_stem(const wide_string& path) { return path_head(path) + path_stem(path); }

} // namespace

void record_copy_failure(const wide_string& path, log_file& log, run_report& report) {
    report.add_copy_error(path);
    log.copy_failed(path);
}

void record_lost_source(const wide_string& path, const wide_string& text, log_file& log, run_report& report) {
    log.file_missing(path);
    report.add_lost_source(text);
}

bool copy_one(const wide_string& source, const wide_string& target, path_placement& placement, log_file& log,
              run_report& report) {
    if (!copy_file(source, target)) {
        record_copy_failure(source, log, report);
        return false;
    }
    placement.register_placed(source, target);
    return true;
}

bool copy_one(const wide_string& source, const wide_string& target, project_context& context) {
    return copy_one(source, target, context.placement, context.log, context.report);
}

bool copy_folder(const wide_string& source, const wide_string& target, bool allow_existing_target,
                 bool overwrite_files) {
    const wide_string from = with_separator(source);
    const wide_string to = with_separator(target);
    if (!allow_existing_target && path_exists(target)) return false;
    std::vector<platform::unread_folder> unread;
    const auto entries = platform::list_tree(platform::current_system(), from, &unread);
    if (!unread.empty() && unread.front().path == from) return false;
    if (!create_folders(to)) return false;
    for (const auto& entry : entries) {
        const wide_string place = to + path_relative(from, entry.path);
        if (!create_folders(entry.is_folder ? place : path_head(place))) return false;
        if (!entry.is_folder && !copy_file(entry.path, place, overwrite_files)) return false;
    }
    return unread.empty();
}

bool copy_file_and_folder(const wide_string& source, const wide_string& target, project_context& context) {
    if (!copy_file(source, target)) {
        record_copy_failure(source, context.log, context.report);
        return true;
    }
    const wide_string folder = folder_of_same_stem(source);
    if (path_exists(folder)) {
        const wide_string new_folder = folder_of_same_stem(target);
        if (copy_folder(folder, new_folder, false, false)) {
            context.placement.register_placed(folder, new_folder);
        } else {
            context.report.add_copy_error(source);
            context.log.copy_failed(folder);
        }
    }
    context.placement.register_placed(source, target);
    return true;
}

} // namespace vs::project_resave
