// The bundle's service factories: static objects that list themselves before the entry is ever called.
#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "framework/border/ref.h"
#include "host/interfaces/service_factory.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

class basic_service_factory_impl : public service_factory_impl {
public:
    explicit basic_service_factory_impl(wide_string factory_id) : id(std::move(factory_id)) {}
    basic_service_factory_impl(const basic_service_factory_impl&) = delete;
    basic_service_factory_impl& operator=(const basic_service_factory_impl&) = delete;
    virtual ~basic_service_factory_impl() = default;

    const wide_string id; // may be empty
};

// All factories of this library in the order of their construction. Exists before any of them.
inline std::vector<basic_service_factory_impl*>& factory_registry() {
    static std::vector<basic_service_factory_impl*> factories;
    return factories;
}

// Lists itself for as long as it lives.
class custom_service_factory_impl : public basic_service_factory_impl {
public:
    explicit custom_service_factory_impl(wide_string factory_id)
        : basic_service_factory_impl(std::move(factory_id)) {
        factory_registry().push_back(this);
    }
    ~custom_service_factory_impl() override { std::erase(factory_registry(), this); }
};

// The same for a factory that offers nothing but wants the context, as a client of other services.
class custom_client_factory_impl : public basic_service_factory_impl {
public:
    explicit custom_client_factory_impl(wide_string factory_id)
        : basic_service_factory_impl(std::move(factory_id)) {
        factory_registry().push_back(this);
    }
    ~custom_client_factory_impl() override { std::erase(factory_registry(), this); }
};

// Starts, keeps and hands out one service of a factory.
template <class T>
class service_holder_base {
public:
    virtual ~service_holder_base() = default;
    // Builds the service unless it runs.
    virtual void start(const bundle_context& context) = 0;
    virtual void stop() = 0;
    virtual bool running() const = 0;
    virtual identity_pointer service() const = 0;
};

// T is the service's class, a referent of the interface Impl built with the context.
//
// The end of the holder is the end of the service, whoever else holds it: it comes when the library goes, and
// the service's code with it. All that refer to the service are told.
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
    ref<Impl> held_; // null again once the service has ended
    T* object_ = nullptr;
};

template <class T>
class service_factory final : public custom_service_factory_impl {
public:
    service_factory(wide_string factory_id, std::unique_ptr<service_holder_base<T>> holder)
        : custom_service_factory_impl(std::move(factory_id)) {
        holders_.push_back(std::move(holder));
    }
    identity_pointer create(bundle_context context) override {
        for (const auto& holder : holders_) holder->start(context);
        return holders_.front()->service();
    }

private:
    std::vector<std::unique_ptr<service_holder_base<T>>> holders_;
};

} // namespace vs::project_resave
