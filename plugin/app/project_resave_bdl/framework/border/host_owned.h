// Ownership of a host object that the bundle created.
#pragma once

#include <memory>

namespace vs::project_resave {

template <auto Destroy>
struct destroyed_by {
    template <class Object>
    void operator()(Object* object) const {
        Destroy(object);
    }
};

// host_owned<vs_uuid, &vs_uuid_destroy>: the host's destroyer runs on every way out, never for null.
template <class Object, auto Destroy>
using host_owned = std::unique_ptr<Object, destroyed_by<Destroy>>;

} // namespace vs::project_resave
