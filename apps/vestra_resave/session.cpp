#include "apps/vestra_resave/session.h"

#include "platform/volumes.h"

namespace vestra::command {

using namespace vs::project_resave;

session::session(const common_options& options, shell::terminal_options front)
    : host_(terminal_, options, std::move(front)) {
    host_.start_own_bundle();
    host_.load_bundles();
    host_.connect();
    collect_resave_services(services_);
    context_.emplace(&services_);
}

session::~session() {
    context_.reset();
    services_.clear();
}

bool session::load(const std::string& project) {
    return context_->load_project(platform::drive_path(project), false, false);
}

} // namespace vestra::command
