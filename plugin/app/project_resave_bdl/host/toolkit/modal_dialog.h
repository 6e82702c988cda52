// Modal dialogs of a bundle: the service by which the host finds each, and the runner that shows them.
#pragma once

#include <cstdint>

#include "host/toolkit/docker.h"

namespace vs::project_resave {

// Who implements: the host. It outlives the connection, or is a referent.
class dialog_runner_impl : public interface_of<dialog_runner_impl> {
public:
    static constexpr const char* name = "vs_dialog_runner_interface_1";
    // Shows the docker in a modal window and returns when that is closed: 0 if it was cancelled or could not
    // be shown, anything else if it was accepted. The docker is borrowed for the call.
    virtual int32_t run(docker content) = 0;
    using operations = operation_list<&dialog_runner_impl::run>;

protected:
    ~dialog_runner_impl() = default;
};
using dialog_runner = interface_to<dialog_runner_impl>;

// Who implements: the bundle, once for each dialog. Who calls: the host.
class modal_dialog_impl : public interface_of<modal_dialog_impl> {
public:
    static constexpr const char* name = "vs_modal_dialog_interface_1";
    // Tells which dialog it is, the same text in every session, so that the host can keep its size and place.
    virtual void identity_text(string_visitor visitor) = 0;
    // Installs the runner; null takes it away. Without one the dialog counts as cancelled.
    virtual void set_runner(dialog_runner runner) = 0;
    using operations = operation_list<&modal_dialog_impl::identity_text, &modal_dialog_impl::set_runner>;

protected:
    ~modal_dialog_impl() = default;
};
using modal_dialog_pointer = interface_to<modal_dialog_impl>;

// Who implements: the bundle; a referent that its factory keeps. Who calls: the host.
class modal_dialog_service_impl : public interface_of<modal_dialog_service_impl> {
public:
    static constexpr const char* name = "vs_modal_dialog_service_interface_102";
    // Lives as long as the service.
    virtual modal_dialog_pointer dialog() = 0;
    using operations = operation_list<&modal_dialog_service_impl::dialog>;

protected:
    ~modal_dialog_service_impl() = default;
};
using modal_dialog_service_pointer = interface_to<modal_dialog_service_impl>;

// Who implements: whoever looks for dialogs. Told each service once.
class modal_dialog_service_visitor_impl : public interface_of<modal_dialog_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_modal_dialog_service_visitor_interface_102";
    virtual void visit(modal_dialog_service_pointer service) = 0;
    using operations = operation_list<&modal_dialog_service_visitor_impl::visit>;

protected:
    ~modal_dialog_service_visitor_impl() = default;
};

} // namespace vs::project_resave
