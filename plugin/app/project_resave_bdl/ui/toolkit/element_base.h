// The base of all elements that the bundle shows, and of the content of windows and pages. Main thread only.
#pragma once

#include "framework/border/ref.h"
#include "host/toolkit/docker.h"
#include "host/toolkit/element.h"

namespace vs::project_resave::toolkit {

// Base of the bundle's elements. An element holds its state and answers the host. Code that changes it calls
// the setters, and the host's observer is notified of actual changes only.
//
// An element is a member of its owner. Layouts and dockers hold only pairs of the elements inside them, so
// these must be members of the same owner or of one that lives longer. Own: the element's interfaces, as a
// polymorphic chain.
template <class Own>
class element_base : public polymorphic<element_impl, Own> {
public:
    element_base(const element_base&) = delete;
    element_base& operator=(const element_base&) = delete;
    // Converts to the pair that is passed to hosts and layouts; valid as long as the element. Implicit, so
    // that elements can be placed like pairs.
    operator element() { return pointer_to<element_impl>(*this); }

    // Change a state that the host draws. Elements inside this one keep their own state.
    void set_enabled(bool on) { assign(enabled_, on); }
    void set_visible(bool on) { assign(visible_, on); }

    void kind(string_visitor visitor) override { call<&string_visitor_impl::visit>(visitor, kind_); }
    bool enabled() override { return enabled_; }
    bool visible() override { return visible_; }
    // Replaces the observer; null removes it. It is held weakly and must outlive the connection if it is no
    // referent.
    void set_observer(element_observer observer) override { observer_.assign(observer); }

protected:
    // `own_kind` must be a literal, such as `button_impl::element_kind`.
    explicit element_base(const char16_t* own_kind) : kind_(own_kind) {}
    ~element_base() = default;

    // Notifies the observer, but only if the value differs. The state changes first, so the observer reads
    // the new value.
    template <class Value>
    void assign(Value& state, const Value& value) {
        if (state == value) return;
        state = value;
        call<&element_observer_impl::on_changed>(observer_.get(), static_cast<element>(*this));
    }

private:
    // Not copied: a literal of the interface.
    const char16_t* const kind_;
    bool enabled_ = true;
    bool visible_ = true;
    weak_ref<element_observer_impl> observer_;
};

// The content of a window, a dialog or a page. A derived class owns the main element and returns it in
// `main_element`.
class docker_base : public element_base<polymorphic<docker_impl>> {
public:
    // Converts to the pair that is passed to hosts; valid as long as the docker.
    operator docker() { return pointer_to<docker_impl>(*this); }

    void title(string_visitor visitor) override { tell(visitor, title_); }
    // No hint, unless a derived class has one.
    void description(string_visitor) override {}
    // None: the host adds its own to a dialog, and asks the service for those of the window.
    element buttons() override { return {}; }
    void set_parent(identity_pointer window) override { parent_.assign(window); }

protected:
    explicit docker_base(wide_string title)
        : element_base(docker_impl::element_kind), title_(std::move(title)) {}
    ~docker_base() = default;

private:
    const wide_string title_;
    // Keeps the host's window alive while it shows the docker.
    ref<interface_impl> parent_;
};

} // namespace vs::project_resave::toolkit
