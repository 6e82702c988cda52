// The host's registry of services: what bundles offer, built when it is first wanted, found by kind.
// User-interface thread only.
#pragma once

#include <memory>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "reference_host/model/counted.h"

namespace vestra::shell {

// While it lives it is the one that `visit_services` asks; registries nest. Its end releases all services.
class service_registry {
public:
    service_registry();
    ~service_registry();
    service_registry(const service_registry&) = delete;
    service_registry& operator=(const service_registry&) = delete;

    // Takes a factory in under an id, which may be empty. It stays the bundle's, is asked at most once for
    // its service, with `context`, and must live until `remove`.
    void add(wide_view id, const vs::project_resave::service_factory_pointer& factory,
             const vs::project_resave::bundle_context& context);

    // To be called once all bundles have registered: asks the factories without an id that were not asked
    // yet. Those that have no service, but are clients of others, get their context by this alone.
    void start_clients();

    // Tells the visitor, in the order of registration, of each service whose factory has exactly this id or
    // none, and whose visitor interface the visitor speaks. The factories concerned are asked for their
    // services first; one that is just being asked, further up, is passed over.
    void visit_services(wide_view id, const vs::project_resave::identity_pointer& visitor);

    // Releases the services in the reverse of the order in which they were made: all, or those of a bundle,
    // whose factories are then forgotten. Whoever else holds one of them keeps it.
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

    std::vector<std::shared_ptr<offer>> offers_; // shared with a visit under way
    std::vector<std::shared_ptr<offer>> made_;   // those that have a service, in the order of the making
    service_registry* const previous_;
};

// Asks the registry in force; nothing is found where there is none.
void visit_services(wide_view id, const vs::project_resave::identity_pointer& visitor);

} // namespace vestra::shell
