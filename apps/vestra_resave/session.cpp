#include "apps/vestra_resave/session.h"

#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/resave_report.h"
#include "framework/resources/strings.h"
#include "operations/project_context.h"
#include "platform/volumes.h"
#include "reference_host/shell/front_end.h"
#include "ui/dialogs.h"

namespace vestra::command {

using namespace vs::project_resave;

bool command_questions::add_referenced() {
    return decided_.add_referenced ? *decided_.add_referenced
                                   : person_.yes_no(load_string(text::add_referenced_elements));
}

stop_answer command_questions::on_stop() {
    if (decided_.on_stop) return *decided_.on_stop;
    switch (person_.yes_no_cancel(load_string(text::erase_created_files))) {
    case shell::answer::cancel:
        return stop_answer::go_on;
    case shell::answer::yes:
        return stop_answer::erase_created;
    default:
        return stop_answer::keep_created;
    }
}

unique_name_answer command_questions::new_name(const wide_string& source, const wide_string& proposed) {
    return show_unique_name_dialog(source, proposed);
}

using namespace vs::project_resave;

session::session(const common_options& options, const decided_answers& answers)
    : host_(terminal_, options), questions_(host_.front_end(), answers) {
    host_.start_own_bundle();
    host_.load_bundles();
    host_.connect();
    collect_resave_services(services_);
    context_ = std::make_unique<project_context>(&services_, questions_);
}

session::~session() {
    context_.reset();
    services_.clear();
}

bool session::load(const std::string& project) { return load(platform::drive_path(project), false, false); }

bool session::load(const wide_string& path, bool show_wait, bool write_open_log) {
    shell::settings().read_error.reset();
    shell::settings().refused_reads.clear();
    if (context_->load_project(path, show_wait, write_open_log)) return true;
    const auto& refused = shell::settings().read_error;
    complain(refused ? one_line(refused->text()) : one_line(path) + ": could not be loaded");
    for (const fact& each : context_->report.facts())
        if (each.kind == fact_kind::exception_caught) complain(line_of(problem_of(each)));
    return false;
}

} // namespace vestra::command
