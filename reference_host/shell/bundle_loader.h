// Loads bundles and lets them go again. User-interface thread only.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/types.h"
#include "reference_host/shell/service_registry.h"

namespace vestra::shell {

// Why a bundle was not loaded.
struct load_error {
    wide_string path; // empty for one that is linked in
    wide_string reason;
};

class bundle_loader {
public:
    // What a bundle exports under the name of `entry_name`.
    using entry_function = void (*)(vs_interface_pointer* out, void* instance);
    static constexpr const char* entry_name = "vs_bundle_interface_to_custom_pointer";

    // The registry must outlive the loader.
    explicit bundle_loader(service_registry& registry);
    // Unloads all.
    ~bundle_loader();
    bundle_loader(const bundle_loader&) = delete;
    bundle_loader& operator=(const bundle_loader&) = delete;

    // Starts the bundle of this entry, or of the library at a drive path: it registers its factories. After
    // the last one `start_clients` of the registry is due. On failure nothing is registered. A library that
    // is loaded already is refused.
    std::optional<load_error> start(entry_function entry);
    std::optional<load_error> load(const wide_string& path);

    // Releases the registry's services, then takes the bundles out, the last one first: its factories are
    // forgotten before its library goes.
    void unload_all();

private:
    class loaded_bundle;

    using bundle_list = std::vector<std::unique_ptr<loaded_bundle>>;

    std::optional<load_error> start(entry_function entry, std::unique_ptr<loaded_bundle> bundle);

    service_registry& registry_;
    bundle_list bundles_;
};

} // namespace vestra::shell
