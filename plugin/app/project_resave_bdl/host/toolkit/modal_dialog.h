// Modal dialogs of a bundle: the service by which the host finds each, and the runner that shows them.
//
// Order of calls: once the bundles are loaded, the host looks for the services under "vestra/modal_dialog"
// and installs its runner in each dialog. It removes the runner, by passing null, before destroying it. In
// between, the bundle calls the runner whenever it needs a dialog. Main thread only.
#pragma once

#include <cstdint>

#include "host/toolkit/docker.h"

namespace vs::project_resave {

// Who implements: the host. Who calls: the bundle. A dialog holds only a weak ref, which does not keep the
// runner alive. A runner that is not a referent must outlive the connection.
class dialog_runner_impl : public interface_of<dialog_runner_impl> {
public:
    static constexpr const char* name = "vs_dialog_runner_interface_1";
    // Shows the docker in a modal window until the user closes it. Returns 0 if the user cancelled or the
    // window could not be shown, any other number if the user accepted. The docker is borrowed for the call.
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
    // Passes the name of the dialog, the same in every session and language, under which the host stores its
    // size and position; may be empty.
    virtual void identity_text(string_visitor visitor) = 0;
    // Installs the runner, replacing an earlier one; null removes it. A dialog without a runner is not shown
    // and counts as cancelled.
    virtual void set_runner(dialog_runner runner) = 0;
    using operations = operation_list<&modal_dialog_impl::identity_text, &modal_dialog_impl::set_runner>;

protected:
    ~modal_dialog_impl() = default;
};
using modal_dialog_pointer = interface_to<modal_dialog_impl>;

// Who implements: the bundle, as a referent that its factory keeps. Who calls: the host.
class modal_dialog_service_impl : public interface_of<modal_dialog_service_impl> {
public:
    static constexpr const char* name = "vs_modal_dialog_service_interface_102";
    // Returns the dialog, valid as long as the service.
    virtual modal_dialog_pointer dialog() = 0;
    using operations = operation_list<&modal_dialog_service_impl::dialog>;

protected:
    ~modal_dialog_service_impl() = default;
};
using modal_dialog_service_pointer = interface_to<modal_dialog_service_impl>;

// Who implements: code that looks for dialogs, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class modal_dialog_service_visitor_impl : public interface_of<modal_dialog_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_modal_dialog_service_visitor_interface_102";
    // Receives one service, borrowed for the call: take a ref to keep it.
    virtual void visit(modal_dialog_service_pointer service) = 0;
    using operations = operation_list<&modal_dialog_service_visitor_impl::visit>;

protected:
    ~modal_dialog_service_visitor_impl() = default;
};

} // namespace vs::project_resave
