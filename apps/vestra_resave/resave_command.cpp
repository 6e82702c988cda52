#include "apps/vestra_resave/resave_command.h"

#include "apps/vestra_resave/output_file.h"
#include "apps/vestra_resave/resave_report.h"
#include "core/path_files.h"
#include "core/paths.h"
#include "framework/strings.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr int32_t question_add_referenced = 214;
constexpr int32_t question_erase = 359;
constexpr int32_t question_reopen = 528;
constexpr int32_t same_name = 527;

shell::terminal_options answers(const resave_wish& wish) {
    shell::terminal_options front;
    front.decided = [&wish](wide_view question) -> std::optional<shell::answer> {
        if (question == load_string(question_add_referenced)) return wish.add_referenced;
        if (question == load_string(question_erase)) return wish.on_stop;
        if (question == load_string(question_reopen)) return shell::answer::no;
        return std::nullopt;
    };
    return front;
}

// The levels of the new project's folder that were missing, deepest first.
std::vector<wide_string> missing_levels(wide_string folder) {
    std::vector<wide_string> missing;
    while (!folder.empty() && !path_exists(folder)) {
        missing.push_back(folder);
        const wide_string above = path_head(path_normalise(folder));
        if (above.size() >= folder.size()) break;
        folder = above;
    }
    return missing;
}

} // namespace

int resave(const resave_wish& wish, const common_options& options) {
    session host(options, answers(wish));
    const wide_string source = platform::drive_path(wish.project);
    const wide_string target = platform::drive_path(wish.new_project);
    if (is_same_file(source, target)) {
        complain(shell::printable(load_string(same_name)));
        return wrong_use;
    }
    project_context& context = host.context();
    if (!context.load_project(source, !options.quiet, wish.load_log)) return wrong_use;
    const std::vector<std::string> complaints =
        apply(wish.selection, elements_of(context), context.selection);
    for (const std::string& line : complaints) complain(line);
    if (!complaints.empty()) return wrong_use;

    const wide_string folder = path_head(target);
    const std::vector<wide_string> made = missing_levels(folder);
    if (!create_folders(folder)) {
        complain("cannot create the folder " + shell::printable(folder));
        return not_saved;
    }
    resave_settings settings = wish.settings;
    settings.output_path = &target;
    context.resave_project(settings);
    if (context.progress.erase_created)
        for (const wide_string& level : made) platform::current_system().remove_folder(level);

    const resave_report report = report_of(context);
    complain_of(report);
    if (options.json)
        print_json(report);
    else
        print_text(report, target, wish.list_files);
    return report.exit;
}

} // namespace vestra::command
