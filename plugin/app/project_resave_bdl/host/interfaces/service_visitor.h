// Who implements: whoever looks for services. Who calls: the host's registry, during
// vs_service_registry_with_services and never later. A visitor object speaks this interface and the typed
// visitor interface of the services it wants; each service X has a visitor "X_visitor" of the same version,
// whose one operation is told the service's interface pointer, borrowed for the call.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class service_visitor_impl : public interface_of<service_visitor_impl> {
public:
    static constexpr const char* name = "vs_service_visitor_interface_0";
    using operations = operation_list<>;

protected:
    ~service_visitor_impl() = default;
};
using service_visitor = interface_to<service_visitor_impl>;

} // namespace vs::project_resave
