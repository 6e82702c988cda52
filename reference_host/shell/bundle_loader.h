// Loads and unloads bundles. User-interface thread only.
#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "host/types.h"
#include "reference_host/shell/service_registry.h"

namespace vestra::shell {

// Why a bundle was not loaded. The reason is the operating system's text, or English.
struct load_error {
    wide_string path; // empty for a bundle that is linked in
    wide_string reason;
};

// Owns the libraries of its bundles. Code and constants of a bundle must not be used after it is unloaded, so
// destroy windows, dialogs and every other object that holds a bundle's object before that.
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

    // Returns the first library that has a service under this id which cannot be used, or has none although
    // it `must_have_one`.
    std::optional<load_error> find_fault(wide_view id, bool must_have_one);

    // Releases the registry's services and unloads the bundles in reverse order. The factories of a bundle
    // are removed before its library is unloaded. May be called again; then it does nothing.
    void unload_all();

private:
    // A bundle with its library; its destructor removes the factories and unloads the library.
    class loaded_bundle;

    using bundle_list = std::vector<std::unique_ptr<loaded_bundle>>;

    // Calls the entry function and keeps the bundle if that succeeds.
    std::optional<load_error> start(entry_function entry, std::unique_ptr<loaded_bundle> bundle);

    service_registry& registry_;
    // In the order of loading.
    bundle_list bundles_;
};

} // namespace vestra::shell
