// The host's own look-up of texts and pictures, found as the service "vestra/localizer". Where it is there
// its answer is final.
#pragma once

#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

// Who implements: the host. `module` is the asking library's handle. Calls the visitor once, or not at all.
class localizer_impl : public interface_of<localizer_impl> {
public:
    static constexpr const char* name = "vs_localizer_interface_1";
    virtual void text(const void* module, uint32_t id, string_visitor visitor) = 0;
    virtual void bitmap(const void* module, uint32_t id, masked_bitmap_visitor visitor) = 0;
    using operations = operation_list<&localizer_impl::text, &localizer_impl::bitmap>;

protected:
    ~localizer_impl() = default;
};
using localizer = interface_to<localizer_impl>;

// Who implements: a bundle that uses the localizer. Told at once when it is connected and whenever the
// localizer changes; null when it ends.
class localizer_client_impl : public interface_of<localizer_client_impl> {
public:
    static constexpr const char* name = "vs_localizer_client_interface_0";
    virtual void set_localizer(localizer current) = 0;
    using operations = operation_list<&localizer_client_impl::set_localizer>;

protected:
    ~localizer_client_impl() = default;
};
using localizer_client = interface_to<localizer_client_impl>;

// Who implements: the host. A connected client lives until it disconnects.
class localizer_service_impl : public interface_of<localizer_service_impl> {
public:
    static constexpr const char* name = "vs_localizer_service_interface_1";
    virtual void connect(localizer_client client) = 0;
    virtual void disconnect(localizer_client client) = 0;
    using operations = operation_list<&localizer_service_impl::connect, &localizer_service_impl::disconnect>;

protected:
    ~localizer_service_impl() = default;
};
using localizer_service = interface_to<localizer_service_impl>;

class localizer_service_visitor_impl : public interface_of<localizer_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_localizer_service_visitor_interface_1";
    virtual void visit(localizer_service service) = 0;
    using operations = operation_list<&localizer_service_visitor_impl::visit>;

protected:
    ~localizer_service_visitor_impl() = default;
};

} // namespace vs::project_resave
