// Ownership of a host object that the bundle created: a unique_ptr whose deleter is the host's destroy or
// close function.
//
//     using owned_uuid = host_owned<vs_uuid, &vs_uuid_destroy>;
//     const owned_uuid uuid(vs_uuid_create());
#pragma once

#include <memory>

namespace vs::project_resave {

// Calls `Destroy` with the object.
template <auto Destroy>
struct destroyed_by {
    template <class Object>
    void operator()(Object* object) const {
        Destroy(object);
    }
};

// Destroys the object on every path; null is not passed to the host.
template <class Object, auto Destroy>
using host_owned = std::unique_ptr<Object, destroyed_by<Destroy>>;

} // namespace vs::project_resave
