#include "framework/bundle_entry.h"

#include "framework/factories.h"

namespace vs::project_resave {

namespace {

using border::entry;

// The bundle object answers to no name, not even its own. `instance` is the host's and never looked into.
void find_nothing(const void*, void*, const char*, const void** table, void** instance) noexcept {
    *table = nullptr;
    *instance = nullptr;
}
const entry identity_table[] = {reinterpret_cast<entry>(&find_nothing)};

void identity(interface_pointer* out, const void*, void* instance) noexcept {
    *out = {identity_table, instance};
}

void start(const void*, void*, bundle_context context) noexcept {
    for (basic_service_factory_impl* factory : factory_registry())
        call<&bundle_context_impl::register_factory>(context, factory->id.c_str(),
                                                     pointer_to<service_factory_impl>(*factory));
}

void nothing(const void*, void*) noexcept {}

} // namespace

} // namespace vs::project_resave

extern "C" void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
    using namespace vs::project_resave;
    static const border::entry table[] = {
        reinterpret_cast<border::entry>(&identity), reinterpret_cast<border::entry>(&start),
        reinterpret_cast<border::entry>(&nothing),  reinterpret_cast<border::entry>(&nothing),
        reinterpret_cast<border::entry>(&nothing),  reinterpret_cast<border::entry>(&nothing)};
    *out = {table, instance};
}
