// The host's own look-up of texts and pictures, offered as the service "vestra/localizer". While a bundle is
// connected, it asks the localizer instead of its own resources. The answer is final: what the localizer does
// not have stays empty.
//
// Order of calls: the bundle finds the service, connects a client, receives the localizer, uses it, and
// disconnects before the client is destroyed. Main thread only.
#pragma once

#include "host/interfaces/masked_bitmap.h"

namespace vs::project_resave {

// Who implements: the host; it must outlive the connection or be a referent. Who calls: a bundle, at each
// look-up. `module` is the handle of the asking library, `id` the number of the row or picture in the base
// language: the localizer chooses the language. The visitor is borrowed for the call.
class localizer_impl : public interface_of<localizer_impl> {
public:
    static constexpr const char* name = "vs_localizer_interface_1";
    // Passes the text of a row to the visitor, once; does not call the visitor if there is no such text.
    virtual void text(const void* module, uint32_t id, string_visitor visitor) = 0;
    // Passes a picture, valid for the call, to the visitor, once; does not call the visitor if there is none.
    virtual void bitmap(const void* module, uint32_t id, masked_bitmap_visitor visitor) = 0;
    using operations = operation_list<&localizer_impl::text, &localizer_impl::bitmap>;

protected:
    ~localizer_impl() = default;
};
using localizer = interface_to<localizer_impl>;

// Who implements: a bundle that uses the localizer. Who calls: the service. The client is not a referent: the
// bundle disconnects it before destroying it.
class localizer_client_impl : public interface_of<localizer_client_impl> {
public:
    static constexpr const char* name = "vs_localizer_client_interface_0";
    // Called during connect, and again whenever the localizer changes, with null when it is destroyed. The
    // bundle keeps no ref, which would keep the localizer alive.
    virtual void set_localizer(localizer current) = 0;
    using operations = operation_list<&localizer_client_impl::set_localizer>;

protected:
    ~localizer_client_impl() = default;
};
using localizer_client = interface_to<localizer_client_impl>;

// Who implements: the host, as a referent. Who calls: a bundle. One bundle connects at most one client.
class localizer_service_impl : public interface_of<localizer_service_impl> {
public:
    static constexpr const char* name = "vs_localizer_service_interface_1";
    // Adds a client and calls its set_localizer at once.
    virtual void connect(localizer_client client) = 0;
    // Removes a connected client, which is not called after that.
    virtual void disconnect(localizer_client client) = 0;
    using operations = operation_list<&localizer_service_impl::connect, &localizer_service_impl::disconnect>;

protected:
    ~localizer_service_impl() = default;
};
using localizer_service = interface_to<localizer_service_impl>;

// Who implements: code that looks for the service, as host/interfaces/service_visitor.h says. Who calls: the
// registry.
class localizer_service_visitor_impl : public interface_of<localizer_service_visitor_impl> {
public:
    static constexpr const char* name = "vs_localizer_service_visitor_interface_1";
    // Receives the service, borrowed for the call: take a ref to keep it.
    virtual void visit(localizer_service service) = 0;
    using operations = operation_list<&localizer_service_visitor_impl::visit>;

protected:
    ~localizer_service_visitor_impl() = default;
};

} // namespace vs::project_resave
