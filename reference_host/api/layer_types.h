// The layer types built into this host, each with the picture that is shown next to a layer in the selection.
// In a full host these come from the bundles that implement the types.
#pragma once

#include <memory>

#include "reference_host/shell/service_registry.h"

namespace vestra::api {

// Main thread only. Must outlive the registries that it is added to.
class layer_types {
public:
    layer_types();
    ~layer_types();
    layer_types(const layer_types&) = delete;
    layer_types& operator=(const layer_types&) = delete;

    // Registers the types for both kinds of scenes. No bundle context is passed, so removing a bundle's
    // factories leaves them registered.
    void add_to(shell::service_registry& registry);

private:
    class factory;
    const std::unique_ptr<factory> factory_;
};

} // namespace vestra::api
