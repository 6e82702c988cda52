// The layer types that this host knows by itself, with a picture for each: what shows next to a layer in the
// selection. In a full host the bundles that bring the types do this.
#pragma once

#include <memory>

#include "reference_host/shell/service_registry.h"

namespace vestra::api {

// Main thread only; outlives the registries that it is added to.
class layer_types {
public:
    layer_types();
    ~layer_types();
    layer_types(const layer_types&) = delete;
    layer_types& operator=(const layer_types&) = delete;

    // Offers the types of both kinds of scenes.
    void add_to(shell::service_registry& registry);

private:
    class factory;
    const std::unique_ptr<factory> factory_;
};

} // namespace vestra::api
