#include "apps/vestra_resave/session.h"

#include "apps/vestra_resave/figures.h"
#include "apps/vestra_resave/problems.h"
#include "operations/project_context.h"
#include "platform/volumes.h"
#include "reference_host/shell/settings.h"

namespace vestra::command {

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
    shell::settings().read_error.clear();
    if (context_->load_project(path, show_wait, write_open_log)) return true;
    const wide_string& reason = shell::settings().read_error;
    complain(reason.empty() ? one_line(path) + ": could not be loaded" : one_line(reason));
    for (const fact& each : context_->report.facts())
        if (each.kind == fact_kind::exception_caught) complain(line_of(problem_of(each)));
    return false;
}

} // namespace vestra::command
