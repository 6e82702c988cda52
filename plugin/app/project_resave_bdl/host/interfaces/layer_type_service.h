// Services registered under "vestra/scene/2d" and "vestra/scene/3d": which layer types there are, with
// pictures.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

// Who implements: a bundle that brings layer types.
class layer_type_service_impl : public interface_of<layer_type_service_impl> {
public:
    static constexpr const char* name = "vs_layer_type_service_interface_1";
    virtual uint32_t type_count() = 0;
    // Narrow layer type; lives as long as the service.
    virtual const char* type_name(uint32_t index) = 0;
    // A new picture of the type, owned by the caller, or null.
    virtual vs_dib* picture(uint32_t index) = 0;
    using operations = operation_list<&layer_type_service_impl::type_count,
                                      &layer_type_service_impl::type_name, &layer_type_service_impl::picture>;

protected:
    ~layer_type_service_impl() = default;
};
using layer_type_service = interface_to<layer_type_service_impl>;

class layer_type_service_visitor_impl : public interface_of<layer_type_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_layer_type_service_visitor_interface_1";
    virtual void visit(layer_type_service service) = 0;
    using operations = operation_list<&layer_type_service_visitor_impl::visit>;

protected:
    ~layer_type_service_visitor_impl() = default;
};

} // namespace vs::project_resave
