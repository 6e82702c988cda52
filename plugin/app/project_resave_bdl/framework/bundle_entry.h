// The one function that a bundle exports, and the bundle interface that it returns. Main thread only. Each
// bundle defines the function in one source, next to its static factories:
//
//     void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
//         vs::project_resave::hand_out_bundle(out, instance);
//     }
#pragma once

#include "framework/factories.h"
#include "platform/export.h"

// Sets `out` to the bundle's table and `instance`, which belongs to the host and is returned unchanged.
// Called by name, once each time the library is loaded.
extern "C" VS_BUNDLE_EXPORT void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out,
                                                                       void* instance);

namespace vs::project_resave {

// Who implements: the bundle, once each time the library is loaded. Who calls: the host, which keeps
// `instance`. Entries 2 to 5 are reserved for the host and do nothing here.
class bundle_impl : public interface_of<bundle_impl> {
public:
    static constexpr const char* name = "vs_bundle_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Registers every factory of this library with the context, in the order of their construction. Creates
    // no service: that happens when the host first asks a factory. The context belongs to the host and is
    // valid until the library is unloaded; null registers nothing.
    virtual void start(bundle_context context) = 0;
    virtual void reserved_2() {}
    virtual void reserved_3() {}
    virtual void reserved_4() {}
    virtual void reserved_5() {}
    using operations = operation_list<&bundle_impl::start, &bundle_impl::reserved_2, &bundle_impl::reserved_3,
                                      &bundle_impl::reserved_4, &bundle_impl::reserved_5>;

protected:
    ~bundle_impl() = default;
};
using bundle = interface_to<bundle_impl>;

// The table of the bundle object, built without a provider class, since `instance` is the host's.
namespace bundle_table {

using border::entry;

// Kept as users know it: the bundle object answers to no name, not even its own. `instance` belongs to the
// host and is never accessed.
inline void find_nothing(const void*, void*, const char*, const void** table, void** instance) noexcept {
    *table = nullptr;
    *instance = nullptr;
}

inline void identity(interface_pointer* out, const void*, void* instance) noexcept {
    static const entry identity_table[] = {reinterpret_cast<entry>(&find_nothing)};
    *out = {identity_table, instance};
}

inline void start(const void*, void*, bundle_context context) noexcept {
    for (basic_service_factory_impl* factory : factory_registry())
        call<&bundle_context_impl::register_factory>(context, factory->id.c_str(),
                                                     pointer_to<service_factory_impl>(*factory));
}
static_assert(std::is_same_v<decltype(&start), decltype(border::operation<&bundle_impl::start>::function())>);

template <auto Reserved>
void do_nothing(const void*, void*) noexcept {}

// There is no provider object, so the entries are separate functions, in the order of the list.
template <auto... Reserved>
const void* build(operation_list<&bundle_impl::start, Reserved...>) {
    static const entry table[] = {reinterpret_cast<entry>(&identity), reinterpret_cast<entry>(&start),
                                  reinterpret_cast<entry>(&do_nothing<Reserved>)...};
    return table;
}

} // namespace bundle_table

// Implements the exported function. Allocates nothing and keeps no state, so it may be called again; each
// call returns the same table.
inline void hand_out_bundle(vs_interface_pointer* out, void* instance) {
    *out = {bundle_table::build(bundle_impl::operations{}), instance};
}

} // namespace vs::project_resave
