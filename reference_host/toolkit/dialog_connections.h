// Lets the modal dialogs of all bundles reach one of the host's dialog runners, for the connection's own
// life.
#pragma once

#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_visitor.h"
#include "host/toolkit/modal_dialog.h"

namespace vestra::toolkit {

class dialog_connections final
    : private vs::project_resave::polymorphic<
          vs::project_resave::modal_dialog_service_visitor_impl,
          vs::project_resave::polymorphic<vs::project_resave::service_visitor_impl>> {
public:
    // Connects every modal dialog that the registry in force finds, so to be made when the bundles are
    // loaded. The runner must outlive the connections; the dialogs need not.
    explicit dialog_connections(vs::project_resave::dialog_runner_impl& runner);
    ~dialog_connections();
    dialog_connections(const dialog_connections&) = delete;
    dialog_connections& operator=(const dialog_connections&) = delete;

private:
    void visit(vs::project_resave::modal_dialog_service_pointer service) override;

    const vs::project_resave::dialog_runner runner_;
    std::vector<vs::project_resave::weak_ref<vs::project_resave::modal_dialog_service_impl>> services_;
};

} // namespace vestra::toolkit
