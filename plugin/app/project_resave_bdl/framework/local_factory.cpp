// The bundle's connection to the host's localizer, and the exported entry function. Texts and pictures can be
// asked for before the host has a localizer, so it is looked for more than once.

#include "framework/local_factory.h"

#include "framework/bundle_entry.h"
#include "framework/resources/strings.h"
#include "host/vsk_basic.h"

namespace vs::project_resave {

namespace {

local_factory_impl* of_library = nullptr; // the only static factory, while it exists

} // namespace

// Removes the localizer of an earlier client, which may be gone.
local_factory_impl::local_factory_impl() : custom_client_factory_impl(u"") {
    set_current_localizer({});
    of_library = this;
}

local_factory_impl::~local_factory_impl() {
    if (of_library == this) of_library = nullptr;
    leave();
    set_current_localizer({});
}

void local_factory_impl::leave() {
    call<&localizer_service_impl::disconnect>(service_.get(), pointer_to<localizer_client_impl>(*this));
}

void local_factory_impl::query(const char* asked, const void** table, void** instance) {
    polymorphic::query(asked, table, instance);
    custom_client_factory_impl::query(asked, table, instance); // at most one of the two answers
}

identity_pointer local_factory_impl::create(bundle_context) {
    look();
    return {};
}

void local_factory_impl::look() {
    if (!service_)
        vs_service_registry_with_services(u"vestra/localizer",
                                          identity_of(pointer_to<localizer_client_impl>(*this)));
}

void look_for_localizer() {
    if (of_library) of_library->look();
}

void local_factory_impl::visit(localizer_service found) {
    if (found == service_.get()) return;
    leave(); // else the earlier service would call a destroyed client
    service_.assign(found);
    call<&localizer_service_impl::connect>(found, pointer_to<localizer_client_impl>(*this));
}

void local_factory_impl::set_localizer(localizer current) { set_current_localizer(current); }

} // namespace vs::project_resave

void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
    vs::project_resave::hand_out_bundle(out, instance);
}
