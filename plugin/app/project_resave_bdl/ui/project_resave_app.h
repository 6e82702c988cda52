// The tool's service, which the host finds under the tool's id. Main thread only.
#pragma once

#include "framework/factories.h"
#include "host/toolkit/custom_app_service.h"
#include "host/toolkit/run_record.h"
#include "ui/settings_element.h"
#include "ui/toolkit/buttons.h"

namespace vs::project_resave {

// The tool as the host sees it: a service that passes the content and the buttons of a window. It also
// implements run_record, for hosts that show more than the tool's messages.
class project_resave_app final
    : public referent<polymorphic<custom_app_service_impl, polymorphic<run_record_impl>>> {
public:
    // Hosts look for the tool by this id, so it never changes.
    static constexpr const char16_t* id = u"vestra/app/project_resave_app";

    // Collects the services of all bundles and builds the panel. Their services must be registered by then.
    explicit project_resave_app(const bundle_context& context);
    // If others still hold the window's content, it stays usable without a project and without services.
    ~project_resave_app() override;

    // Passes the same content each time the tool is opened, so the choices made in it are kept.
    void hand_over_main_element(main_element_visitor visitor) override;
    // Run and Close. Close lets the host close the window; Run never does.
    element button_box() override { return buttons_; }

    uint32_t run_count() override { return content_.panel.runs().count; }
    recorded_end last_end() override { return content_.panel.runs().last.end; }
    void pass_settings(run_record_visitor visitor) override { content_.panel.planned().pass_to(visitor); }
    // Passes nothing before the first run has ended.
    void pass_last_run(run_record_visitor visitor) override;
    // Does nothing while an operation runs; ignores uuids that have no row.
    void leave_out(const char16_t* const* uuids, uint32_t count) override;
    void set_transfer_observer(transfer_observer observer) override {
        content_.panel.watch_transfer(observer);
    }

private:
    // The content of the window. It is a separate referent, as the host may hold it longer than this service.
    class docker final : public toolkit::docker_base, public obj {
    public:
        explicit docker(const resave_services* found);

        void query(const char* asked, const void** table, void** instance) override;
        void identity(interface_pointer& out) override { docker_base::identity(out); }
        void description(string_visitor visitor) override { title(visitor); }
        element main_element() override { return panel.main_element(); }
        // Null closes the loaded project, since the window is about to close.
        void set_parent(identity_pointer window) override;

        // The main panel, which is the content.
        settings_element panel;
    };

    resave_services services_; // must not move: the panel's context points to it
    // Not owned by this reference but by `content_held_` and any ref of the host.
    docker& content_;
    ref<docker_impl> content_held_;
    // Valid as long as the service; hosts do not keep it longer.
    toolkit::button_box buttons_;
};

} // namespace vs::project_resave
