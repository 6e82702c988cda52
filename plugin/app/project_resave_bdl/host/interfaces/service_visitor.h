// The interface of every visitor that looks for services in the host's registry.
//
// Who implements: code that looks for services, for one call of vs_service_registry_with_services. Who calls:
// the registry, during that call and never later. Main thread only.
//
// A visitor object implements this interface and, for each kind of service it wants, the visitor interface of
// that kind: the service "vs_X_interface_n" has the visitor "vs_X_visitor_interface_n". Its one operation
// receives each such service once; the pointer is borrowed for the call, so take a ref to keep the service.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

// Has no operations: it only marks an object as a visitor of services.
class service_visitor_impl : public interface_of<service_visitor_impl> {
public:
    static constexpr const char* name = "vs_service_visitor_interface_0";
    using operations = operation_list<>;

protected:
    ~service_visitor_impl() = default;
};
using service_visitor = interface_to<service_visitor_impl>;

} // namespace vs::project_resave
