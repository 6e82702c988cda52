// Loads and starts the libraries of bundles, and ends them in an order in which no code of an unloaded
// library is called.
#include "reference_host/shell/bundle_loader.h"

#include <algorithm>
#include <utility>

#include "framework/bundle_entry.h"
#include "platform/library.h"
#include "platform/system.h"

namespace vestra::shell {

using namespace vs::project_resave;

// One bundle, with the context object that identifies it to the host.
class bundle_loader::loaded_bundle final : public bundle_context_impl {
public:
    loaded_bundle(service_registry& registry, wide_string path, std::unique_ptr<platform::library> library)
        : registry_(registry), path_(std::move(path)), library_(std::move(library)) {}
    ~loaded_bundle() { registry_.remove(context()); } // before the library is unloaded
    loaded_bundle(const loaded_bundle&) = delete;
    loaded_bundle& operator=(const loaded_bundle&) = delete;

    void register_factory(const char16_t* id, service_factory_pointer factory) override {
        registry_.add(id ? id : u"", factory, context());
    }

    bundle_context context() { return pointer_to<bundle_context_impl>(*this); }
    const wide_string& path() const { return path_; }

private:
    service_registry& registry_;
    wide_string path_;
    std::unique_ptr<platform::library> library_;
};

bundle_loader::bundle_loader(service_registry& registry) : registry_(registry) {}

bundle_loader::~bundle_loader() { unload_all(); }

std::optional<load_error> bundle_loader::start(entry_function entry) {
    return start(entry, std::make_unique<loaded_bundle>(registry_, wide_string(), nullptr));
}

std::optional<load_error> bundle_loader::load(const wide_string& path) {
    // By identity, not by path: opening a library again under another path returns the loaded one, which
    // would then register everything twice.
    const auto is_this = [&](const auto& bundle) {
        return platform::current_system().same_file(bundle->path(), path);
    };
    if (std::ranges::any_of(bundles_, is_this)) return load_error{path, u"the bundle is loaded already"};

    wide_string reason;
    auto library = platform::library::open(path, reason);
    if (!library) return load_error{path, reason};
    const auto entry = reinterpret_cast<entry_function>(library->symbol(entry_name));
    if (!entry) return load_error{path, u"the library is not a bundle"};
    return start(entry, std::make_unique<loaded_bundle>(registry_, path, std::move(library)));
}

std::optional<load_error> bundle_loader::start(entry_function entry, std::unique_ptr<loaded_bundle> bundle) {
    interface_to<bundle_impl> started;
    entry(&started, bundle.get());
    // What the library may have registered so far is removed by the destructor of `bundle`.
    if (!started) return load_error{bundle->path(), u"the library returned no bundle"};
    call<&bundle_impl::start>(started, bundle->context());
    bundles_.push_back(std::move(bundle));
    return std::nullopt;
}

std::optional<load_error> bundle_loader::find_fault(wide_view id, bool must_have_one) {
    for (const auto& bundle : bundles_)
        if (wide_string fault = registry_.fault_of(id, bundle->context(), must_have_one); !fault.empty())
            return load_error{bundle->path(), std::move(fault)};
    return std::nullopt;
}

void bundle_loader::unload_all() {
    // First all services of all bundles, since they may refer to each other. Then one by one: a vector does
    // not promise the order in which it destroys its elements.
    registry_.release_services();
    while (!bundles_.empty()) bundles_.pop_back();
}

} // namespace vestra::shell
