// The bundle as a client of the host's localizer. Main thread only.
#pragma once

#include "framework/factories.h"
#include "host/interfaces/localizer.h"
#include "host/interfaces/service_visitor.h"

namespace vs::project_resave {

// The library's own client of the host's localizer: it keeps the localizer that provides texts and pictures.
// It is a static object. Without a localizer, texts and pictures come from the library's own resources.
class local_factory_impl final
    : public polymorphic<localizer_client_impl,
                         polymorphic<localizer_service_visitor_impl, polymorphic<service_visitor_impl>>>,
      public custom_client_factory_impl {
public:
    // The object created last is the one that look_for_localizer() uses.
    local_factory_impl();
    ~local_factory_impl() override;

    // Answers for both bases: the client's interfaces and that of the factory.
    void query(const char* asked, const void** table, void** instance) override;
    void identity(interface_pointer& out) override { custom_client_factory_impl::identity(out); }

    // Looks for the localizer service. Returns null, since it offers no service itself.
    identity_pointer create(bundle_context context) override;
    // Connects to the service that the registry found, after disconnecting from an earlier one.
    void visit(localizer_service found) override;
    // Called by the service: makes `current` the localizer of this library; null for none.
    void set_localizer(localizer current) override;

    // Looks for the localizer service unless one is connected.
    void look();

private:
    // Disconnects from the service, if there is one.
    void leave();

    weak_ref<localizer_service_impl> service_; // the host's service outlives its bundles, or notifies them
};

// Looks for the localizer service again: it may have been added since the library was registered. Call before
// texts are looked up for good, as by the panel. Does nothing without a static client.
void look_for_localizer();

} // namespace vs::project_resave
