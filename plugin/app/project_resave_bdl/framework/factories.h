// The bundle's service factories: static objects that add themselves to a list before the host calls the
// entry function. Main thread only.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// A factory with the id under which it is registered. Factories are static objects, so a host may refer to
// them until it unloads the library.
class basic_service_factory_impl : public service_factory_impl {
public:
    explicit basic_service_factory_impl(wide_string factory_id) : id(std::move(factory_id)) {}
    basic_service_factory_impl(const basic_service_factory_impl&) = delete;
    basic_service_factory_impl& operator=(const basic_service_factory_impl&) = delete;
    virtual ~basic_service_factory_impl() = default;

    const wide_string id; // empty: found under every id
};

// Returns all factories of this library in the order of their construction. The list is created with the
// first of them, so it does not depend on the order in which sources are initialised.
inline std::vector<basic_service_factory_impl*>& factory_registry() {
    static std::vector<basic_service_factory_impl*> factories;
    return factories;
}

// A factory of a service; it is on the list for its whole lifetime. It must be a static object: the entry
// function passes it to the host only once.
class custom_service_factory_impl : public basic_service_factory_impl {
public:
    explicit custom_service_factory_impl(wide_string factory_id)
        : basic_service_factory_impl(std::move(factory_id)) {
        factory_registry().push_back(this);
    }
    ~custom_service_factory_impl() override { std::erase(factory_registry(), this); }
};

// The same for a factory that offers no service but needs the context, as a client of other services. Its
// `create` returns null. With an empty id, hosts ask it at the start.
class custom_client_factory_impl : public basic_service_factory_impl {
public:
    explicit custom_client_factory_impl(wide_string factory_id)
        : basic_service_factory_impl(std::move(factory_id)) {
        factory_registry().push_back(this);
    }
    ~custom_client_factory_impl() override { std::erase(factory_registry(), this); }
};

// Starts and keeps one service of a factory.
template <class T>
class service_holder_base {
public:
    virtual ~service_holder_base() = default;
    // Creates the service unless it is running. The context goes to its constructor and is valid as long as
    // the library.
    virtual void start(const bundle_context& context) = 0;
    // Destroys the service if it is running, even if others hold refs to it, which become null.
    virtual void stop() = 0;
    // True from start() until the service is destroyed.
    virtual bool running() const = 0;
    // Returns the identity of the service, borrowed as long as it runs; null if it is not running.
    virtual identity_pointer service() const = 0;
};

// T is the service's class, a referent of the interface Impl, constructed with the context.
//
// The holder destroys the service when it is destroyed, even if others hold refs: this happens when the
// library is unloaded, and the service's code is unloaded with it. All referrers are notified, so a host's
// ref becomes null instead of pointing to unloaded code.
template <class T, class Impl>
class ref_service_holder final : public service_holder_base<T> {
public:
    ~ref_service_holder() override { ref_service_holder::stop(); }
    void start(const bundle_context& context) override {
        if (held_) return;
        auto made = std::make_unique<T>(context);
        held_.assign(pointer_to<Impl>(*made));
        object_ = made.release();
    }
    void stop() override {
        if (held_) delete object_;
    }
    bool running() const override { return static_cast<bool>(held_); }
    identity_pointer service() const override {
        return identity_of(static_cast<const interface_pointer&>(held_.get()));
    }

private:
    ref<Impl> held_; // null again once the service was destroyed
    // The same object as a T, for `stop`; dangling once `held_` is null.
    T* object_ = nullptr;
};

// The factory of a service of class T. `create` starts all its holders and returns the first one's service.
// Define it as a static object of the bundle, once for each service.
template <class T>
class service_factory final : public custom_service_factory_impl {
public:
    service_factory(wide_string factory_id, std::unique_ptr<service_holder_base<T>> holder)
        : custom_service_factory_impl(std::move(factory_id)) {
        holders_.push_back(std::move(holder));
    }
    // If the constructor of the service throws, the entry records that and the host gets null.
    identity_pointer create(bundle_context context) override {
        for (const auto& holder : holders_) holder->start(context);
        return holders_.front()->service();
    }

private:
    // At least one: the constructor adds it.
    std::vector<std::unique_ptr<service_holder_base<T>>> holders_;
};

} // namespace vs::project_resave
