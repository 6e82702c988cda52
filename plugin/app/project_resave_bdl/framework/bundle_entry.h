// The one function that the library exports, and the bundle interface it hands out.
#pragma once

#include "host/interfaces/service_factory.h"

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

} // namespace vs::project_resave

// Fills `out` with the bundle's table and `instance`, which is the host's own and comes back untouched.
extern "C" void vs_bundle_interface_to_custom_pointer(vs_interface_pointer* out, void* instance);
