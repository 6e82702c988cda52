// The tool's service, and the static objects by which the host finds all services of the bundle.

#include "ui/project_resave_app.h"

#include <unordered_set>

#include "framework/local_factory.h"
#include "framework/resources/strings.h"
#include "services/entity_factory.h"
#include "services/maplegs_plugin_service.h"
#include "ui/dialogs.h"

namespace vs::project_resave {

project_resave_app::docker::docker(const resave_services* found)
    : docker_base(load_string(text::tool_title)), panel(found) {}

void project_resave_app::docker::query(const char* asked, const void** table, void** instance) {
    docker_base::query(asked, table, instance);
    obj::query(asked, table, instance); // at most one of the two answers
}

void project_resave_app::docker::set_parent(identity_pointer window) {
    if (window)
        // The window was opened again before a running operation has ended.
        panel.keep_project();
    else
        panel.close_project();
    docker_base::set_parent(window);
}

project_resave_app::project_resave_app(const bundle_context&)
    // Texts of the panel are looked up while it is built, so the localizer must be connected before.
    : content_((look_for_localizer(), *new docker(&services_))),
      content_held_(pointer_to<docker_impl>(content_)),
      buttons_({{load_string(text::host_run), toolkit::run_code},
                {load_string(text::host_close), toolkit::close_code}},
               [this] { return content_.panel.run_active_tab(); }) {
    collect_resave_services(services_);
}

project_resave_app::~project_resave_app() {
    // The host may still hold the docker: its panel must not use the services, which are destroyed next.
    const weak_ref<docker_impl> left(content_held_.get());
    content_held_.reset();
    if (left) content_.panel.leave_services();
}

void project_resave_app::hand_over_main_element(main_element_visitor visitor) {
    call<&main_element_visitor_impl::visit>(visitor, u"project_resave_app",
                                            pointer_to<docker_impl>(content_));
}

void project_resave_app::pass_last_run(run_record_visitor visitor) {
    if (content_.panel.runs().count != 0) content_.panel.runs().last.pass_to(visitor);
}

void project_resave_app::leave_out(const char16_t* const* uuids, uint32_t count) {
    std::unordered_set<wide_string> wanted;
    for (uint32_t index = 0; index < count; ++index) wanted.insert(text_or_empty(uuids[index]));
    content_.panel.leave_out(wanted);
}

// All services of the bundle: their static factories, in the order in which they are registered.

namespace {

// Constructed before the factories, so destroyed after them: a panel that is still open when the library is
// unloaded needs texts until its end.
[[maybe_unused]] const localizer place_of_localizer = current_localizer();
[[maybe_unused]] const platform::module_handle place_of_texts = platform::own_module();

plain_dialog_factory plain_dialog;
service_factory<project_resave_app>
    application(project_resave_app::id,
                std::make_unique<ref_service_holder<project_resave_app, custom_app_service_impl>>());
unique_name_dialog_factory unique_name;
extended_message_dialog_factory extended_message;
service_factory<maplegs_plugin_service>
    map_legends(u"", std::make_unique<ref_service_holder<maplegs_plugin_service, resave_service_impl>>());
local_factory_impl localizer_client_of_bundle;

} // namespace

} // namespace vs::project_resave
