// How a bundle's services reach the host: the bundle registers one factory for each service, and the host
// calls the factory when the service is needed. Main thread only.
//
// Both tables have their first operation in entry 1. Order of calls: the host starts the bundle
// (framework/bundle_entry.h), the bundle registers its factories, later the host calls `create`.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class bundle_context_impl;
using bundle_context = interface_to<bundle_context_impl>;

// Who implements: a bundle, once for each service it offers, as a static object that lives until the library
// is unloaded. Who calls: the host, when the service is first needed; for a factory without an id, once all
// bundles are loaded.
class service_factory_impl : public interface_of<service_factory_impl> {
public:
    static constexpr const char* name = "vs_service_factory_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Returns the identity of the service, a referent that the factory keeps alive. The first call builds it;
    // later calls return the same service. Null if the factory offers no service, for example because the
    // bundle only uses other services. `context` is the one passed to register_factory.
    virtual identity_pointer create(bundle_context context) = 0;
    using operations = operation_list<&service_factory_impl::create>;

protected:
    ~service_factory_impl() = default;
};
using service_factory_pointer = interface_to<service_factory_impl>;

// Who implements: the host, once for each bundle it loads; valid until the bundle is unloaded. Who calls: the
// bundle, while it starts.
class bundle_context_impl : public interface_of<bundle_context_impl> {
public:
    static constexpr const char* name = "vs_bundle_context_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Registers a factory, which the bundle continues to own. Its service is found under exactly `id`, or
    // under every id if `id` is empty. A null factory is ignored.
    virtual void register_factory(const char16_t* id, service_factory_pointer factory) = 0;
    using operations = operation_list<&bundle_context_impl::register_factory>;

protected:
    ~bundle_context_impl() = default;
};

} // namespace vs::project_resave
