// The one function that a bundle exports, and the bundle interface it hands out. Each bundle defines it in
// one source, beside its static factories:
//
//     void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance) {
//         vs::project_resave::hand_out_bundle(out, instance);
//     }
#pragma once

#include "framework/factories.h"
#include "platform/export.h"

// Fills `out` with the bundle's table and `instance`, which is the host's own and comes back untouched.
// Called by name, once for each load of the library.
extern "C" VS_BUNDLE_EXPORT void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out,
                                                                       void* instance);

namespace vs::project_resave {

// What the host calls on the bundle. Entries 2 to 5 are the host's and do nothing here.
class bundle_impl : public interface_of<bundle_impl> {
public:
    static constexpr const char* name = "vs_bundle_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Announces every factory of this library to the context, in the order of their construction. A null
    // context announces nothing.
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

namespace border {

// The bundle object answers to no name, not even its own. `instance` is the host's and never looked into.
inline void find_nothing(const void*, void*, const char*, const void** table, void** instance) noexcept {
    *table = nullptr;
    *instance = nullptr;
}

inline void bundle_identity(interface_pointer* out, const void*, void* instance) noexcept {
    static const entry identity_table_of_bundle[] = {reinterpret_cast<entry>(&find_nothing)};
    *out = {identity_table_of_bundle, instance};
}

inline void start_bundle(const void*, void*, bundle_context context) noexcept {
    for (basic_service_factory_impl* factory : factory_registry())
        call<&bundle_context_impl::register_factory>(context, factory->id.c_str(),
                                                     pointer_to<service_factory_impl>(*factory));
}

inline void do_nothing(const void*, void*) noexcept {}

} // namespace border

// The body of the exported function.
inline void hand_out_bundle(vs_interface_pointer* out, void* instance) {
    using border::entry;
    static const entry table[] = {
        reinterpret_cast<entry>(&border::bundle_identity), reinterpret_cast<entry>(&border::start_bundle),
        reinterpret_cast<entry>(&border::do_nothing),      reinterpret_cast<entry>(&border::do_nothing),
        reinterpret_cast<entry>(&border::do_nothing),      reinterpret_cast<entry>(&border::do_nothing)};
    *out = {table, instance};
}

} // namespace vs::project_resave
