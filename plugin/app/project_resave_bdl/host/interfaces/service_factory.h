// The road by which a bundle's services reach the host.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class bundle_context_impl;
using bundle_context = interface_to<bundle_context_impl>;

// Who implements: a bundle, once for each service it offers. Who calls: the host, when it first wants the
// service.
class service_factory_impl : public interface_of<service_factory_impl> {
public:
    static constexpr const char* name = "vs_service_factory_interface_1";
    static constexpr bool rooted_in_identity = true;
    // The identity of the service, a referent that the factory keeps alive; null if there is none. Two calls
    // give one service.
    virtual identity_pointer create(bundle_context context) = 0;
    using operations = operation_list<&service_factory_impl::create>;

protected:
    ~service_factory_impl() = default;
};
using service_factory_pointer = interface_to<service_factory_impl>;

// Who implements: the host, once for each bundle it loads. It lives until the bundle is unloaded.
class bundle_context_impl : public interface_of<bundle_context_impl> {
public:
    static constexpr const char* name = "vs_bundle_context_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Announces a factory under an id, which may be empty. The factory stays the bundle's.
    virtual void register_factory(const char16_t* id, service_factory_pointer factory) = 0;
    using operations = operation_list<&bundle_context_impl::register_factory>;

protected:
    ~bundle_context_impl() = default;
};

} // namespace vs::project_resave
