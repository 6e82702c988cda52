#include "reference_host/toolkit/dialog_connections.h"

#include "reference_host/shell/service_registry.h"

namespace vestra::toolkit {

using namespace vs::project_resave;

namespace {

void install(const modal_dialog_service_pointer& service, const dialog_runner& runner) {
    call<&modal_dialog_impl::set_runner>(call<&modal_dialog_service_impl::dialog>(service), runner);
}

} // namespace

dialog_connections::dialog_connections(dialog_runner_impl& runner)
    : runner_(pointer_to<dialog_runner_impl>(runner)) {
    shell::visit_services(u"vestra/modal_dialog",
                          identity_of(static_cast<modal_dialog_service_visitor_impl&>(*this)));
}

dialog_connections::~dialog_connections() {
    for (const auto& service : services_) install(service.get(), {});
}

void dialog_connections::visit(modal_dialog_service_pointer service) {
    install(service, runner_);
    services_.emplace_back(service);
}

} // namespace vestra::toolkit
