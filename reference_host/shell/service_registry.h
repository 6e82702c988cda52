// The host's registry of services: bundles offer factories, which create services on first request.
// User-interface thread only.
#pragma once

#include <memory>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "reference_host/model/counted.h"

namespace vestra::shell {

// `visit_services` uses the innermost living registry; registries can be nested. The destructor releases all
// services.
class service_registry {
public:
    // Makes this the current registry.
    service_registry();
    ~service_registry();
    service_registry(const service_registry&) = delete;
    service_registry& operator=(const service_registry&) = delete;

    // Registers a factory under an id, which may be empty. The bundle keeps the ownership, and the factory
    // must stay valid until `remove`. It is asked for its service at most once, with `context`.
    void add(wide_view id, const vs::project_resave::service_factory_pointer& factory,
             const vs::project_resave::bundle_context& context);

    // Call after all bundles have registered: asks the remaining factories without an id for their service.
    // Bundles that have no service but use those of others get their context this way.
    void start_clients();

    // Passes each matching service to the visitor, in the order of registration: those whose factory has
    // exactly this id or no id, and whose visitor interface the visitor implements. Services are created on
    // first use; a factory that is being asked further up the call stack is skipped.
    void visit_services(wide_view id, const vs::project_resave::identity_pointer& visitor);

    // Returns why visitors with this id cannot use a service of the bundle with this context; empty if they
    // can use all of them. Having none is a fault if the bundle `must_have_one`. Services are started for
    // that.
    wide_string fault_of(wide_view id, const vs::project_resave::bundle_context& context, bool must_have_one);

    // Releases services in the reverse order of their creation: all of them, or those of one bundle, whose
    // factories are removed too. Other holders of a service keep their references.
    void release_services();
    void remove(const vs::project_resave::bundle_context& context);

private:
    struct offer {
        wide_string id;
        vs::project_resave::service_factory_pointer factory;
        vs::project_resave::bundle_context context;
        bool asked = false;
        vs::project_resave::ref<vs::project_resave::interface_impl> service;
    };

    void ask(const std::shared_ptr<offer>& wanted);
    void release_services_of(const vs::project_resave::bundle_context* context);

    std::vector<std::shared_ptr<offer>> offers_; // shared with visits in progress
    std::vector<std::shared_ptr<offer>> made_;   // offers that have a service, in the order of creation
    service_registry* const previous_;
};

// Visits the services of the current registry; does nothing if there is none.
void visit_services(wide_view id, const vs::project_resave::identity_pointer& visitor);

} // namespace vestra::shell
