#include "ui/project_resave_app.h"

#include "framework/local_factory.h"
#include "framework/resources/strings.h"
#include "services/collect_services.h"

namespace vs::project_resave {

namespace {

// Words of the host's own, with the codes of the buttons: one starts the operation, one closes the window.
constexpr int32_t run_code = 2;
constexpr int32_t close_code = 8;

} // namespace

project_resave_app::docker::docker(const resave_services* found)
    : docker_base(load_string(text::tool_title)), panel(found) {}

void project_resave_app::docker::query(const char* asked, const void** table, void** instance) {
    docker_base::query(asked, table, instance);
    obj::query(asked, table, instance); // the names differ, so at most one fills
}

void project_resave_app::docker::set_parent(identity_pointer window) {
    if (window)
        panel.keep_project();
    else
        panel.close_project();
    docker_base::set_parent(window);
}

project_resave_app::project_resave_app(const bundle_context&)
    : content((look_for_localizer(), *new docker(&services))), content_held(pointer_to<docker_impl>(content)),
      buttons({{load_string(text::host_run), run_code}, {load_string(text::host_close), close_code}},
              [this] { return content.panel.run_active_tab(); }) {
    collect_resave_services(services);
}

project_resave_app::~project_resave_app() {
    const weak_ref<docker_impl> left(content_held.get());
    content_held.reset();
    if (left) content.panel.leave_services();
}

void project_resave_app::hand_over_main_element(main_element_visitor visitor) {
    call<&main_element_visitor_impl::visit>(visitor, u"project_resave_app", pointer_to<docker_impl>(content));
}

} // namespace vs::project_resave
