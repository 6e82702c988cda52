// Services registered under "vestra/scene/2d" and "vestra/scene/3d": the layer types that exist, with their
// pictures. The selection tree shows the picture of a layer's type next to the layer.
//
// Who implements: a bundle that defines layer types, as a referent that lives until its library is unloaded.
// Who calls: any bundle that shows layers; it asks for all types at once and keeps copies. Main thread only.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class layer_type_service_impl : public interface_of<layer_type_service_impl> {
public:
    static constexpr const char* name = "vs_layer_type_service_interface_1";
    // Returns the number of types; indexes run from 0.
    virtual uint32_t type_count() = 0;
    // Returns a layer type as narrow text, compared with letter case; valid as long as the service. Callers
    // skip a null type; if several rows have the same type, the first counts.
    virtual const char* type_name(uint32_t index) = 0;
    // Returns a new picture of the type, opaque throughout; the caller destroys it by vs_dib_destroy. Null if
    // there is no picture.
    virtual vs_dib* picture(uint32_t index) = 0;
    using operations = operation_list<&layer_type_service_impl::type_count,
                                      &layer_type_service_impl::type_name, &layer_type_service_impl::picture>;

protected:
    ~layer_type_service_impl() = default;
};
using layer_type_service = interface_to<layer_type_service_impl>;

// Who implements: code that looks for layer types, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class layer_type_service_visitor_impl : public interface_of<layer_type_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_layer_type_service_visitor_interface_1";
    // Receives one service, borrowed for the call: take a ref to keep it.
    virtual void visit(layer_type_service service) = 0;
    using operations = operation_list<&layer_type_service_visitor_impl::visit>;

protected:
    ~layer_type_service_visitor_impl() = default;
};

} // namespace vs::project_resave
