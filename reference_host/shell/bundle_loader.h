// Loads and unloads bundles. User-interface thread only.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/types.h"
#include "reference_host/shell/service_registry.h"

namespace vestra::shell {

// Why a bundle was not loaded.
struct load_error {
    wide_string path; // empty for a bundle that is linked in
    wide_string reason;
};

class bundle_loader {
public:
    // The function that a bundle exports as `entry_name`.
    using entry_function = void (*)(vs_interface_pointer* out, void* instance);
    static constexpr const char* entry_name = "vs_bundle_interface_to_custom_pointer";

    // The registry must outlive the loader.
    explicit bundle_loader(service_registry& registry);
    // Unloads all bundles.
    ~bundle_loader();
    bundle_loader(const bundle_loader&) = delete;
    bundle_loader& operator=(const bundle_loader&) = delete;

    // Start the bundle with this entry function, or the one in the library at a drive path; the bundle
    // registers its factories. Call `start_clients` of the registry after the last one. On failure nothing is
    // registered. A library that is already loaded is rejected.
    std::optional<load_error> start(entry_function entry);
    std::optional<load_error> load(const wide_string& path);

    // Returns the first library that has no service under this id, or one that cannot be used.
    std::optional<load_error> without_service(wide_view id);

    // Releases the registry's services and unloads the bundles in reverse order. The factories of a bundle
    // are removed before its library is unloaded.
    void unload_all();

private:
    class loaded_bundle;

    using bundle_list = std::vector<std::unique_ptr<loaded_bundle>>;

    std::optional<load_error> start(entry_function entry, std::unique_ptr<loaded_bundle> bundle);

    service_registry& registry_;
    bundle_list bundles_;
};

} // namespace vestra::shell
