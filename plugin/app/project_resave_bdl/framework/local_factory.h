#pragma once

#include "framework/factories.h"
#include "host/interfaces/localizer.h"
#include "host/interfaces/service_visitor.h"

namespace vs::project_resave {

// The library's own client of the host's localizer: keeps the localizer that texts and pictures go through.
class local_factory_impl final
    : public polymorphic<localizer_client_impl,
                         polymorphic<localizer_service_visitor_impl, polymorphic<service_visitor_impl>>>,
      public custom_client_factory_impl {
public:
    local_factory_impl();
    ~local_factory_impl() override;

    void query(const char* asked, const void** table, void** instance) override;
    void identity(interface_pointer& out) override { custom_client_factory_impl::identity(out); }

    // Looks for the localizer service; offers no service itself.
    identity_pointer create(bundle_context context) override;
    void visit(localizer_service found) override;
    void set_localizer(localizer current) override;

    // Looks for the localizer service unless one is connected.
    void look();

private:
    void leave();

    weak_ref<localizer_service_impl> service_; // the host's service outlives its bundles, or says so
};

// Looks once more: a localizer may have appeared since the library was announced to the host.
void look_for_localizer();

} // namespace vs::project_resave
