// Base of the bundle's elements. An element holds its state and answers the host; whoever changes it calls
// the setters, and the host's observer is told of what really changed.
//
// An element is a member of its owner. Layouts and dockers hold only pairs of the elements inside them, so
// these must be members of the same owner or of one that lives longer.
#pragma once

#include "framework/border/ref.h"
#include "host/toolkit/element.h"

namespace vs::project_resave::toolkit {

// Own: the element's own interfaces, as a polymorphic chain.
template <class Own>
class element_base : public polymorphic<element_impl, Own> {
public:
    element_base(const element_base&) = delete;
    element_base& operator=(const element_base&) = delete;
    operator element() { return pointer_to<element_impl>(*this); }

    void set_enabled(bool on) { assign(enabled_, on); }
    void set_visible(bool on) { assign(visible_, on); }

    void kind(string_visitor visitor) override { call<&string_visitor_impl::visit>(visitor, kind_); }
    bool enabled() override { return enabled_; }
    bool visible() override { return visible_; }
    void set_observer(element_observer observer) override { observer_.assign(observer); }

protected:
    explicit element_base(const char16_t* own_kind) : kind_(own_kind) {}
    ~element_base() = default;

    // Tells the observer only if the value differs.
    template <class Value>
    void assign(Value& state, const Value& value) {
        if (state == value) return;
        state = value;
        call<&element_observer_impl::on_changed>(observer_.get(), static_cast<element>(*this));
    }

private:
    const char16_t* const kind_;
    bool enabled_ = true;
    bool visible_ = true;
    weak_ref<element_observer_impl> observer_;
};

} // namespace vs::project_resave::toolkit
