#include "framework/local_factory.h"

#include "framework/resources/strings.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

// No localizer of an earlier client stays in force.
local_factory_impl::local_factory_impl() : custom_client_factory_impl(u"") { set_current_localizer({}); }

local_factory_impl::~local_factory_impl() {
    call<&localizer_service_impl::disconnect>(service.get(), pointer_to<localizer_client_impl>(*this));
    set_current_localizer({});
}

void local_factory_impl::query(const char* asked, const void** table, void** instance) {
    polymorphic::query(asked, table, instance);
    custom_client_factory_impl::query(asked, table, instance); // the names differ, so at most one fills
}

identity_pointer local_factory_impl::create(bundle_context) {
    if (!service)
        vs_service_registry_with_services(u"vestra/localizer",
                                          identity_of(pointer_to<localizer_client_impl>(*this)));
    return {};
}

void local_factory_impl::visit(localizer_service found) {
    service.assign(found);
    call<&localizer_service_impl::connect>(found, pointer_to<localizer_client_impl>(*this));
}

void local_factory_impl::set_localizer(localizer current) { set_current_localizer(current); }

} // namespace vs::project_resave
