// Smart interface pointers: ref<I> keeps the object alive; weak_ref<I> does not, and becomes null when the
// object is destroyed.
//
// The object keeps a list of the addresses of its refs, so each copy and each moved-to ref registers itself.
// An object that is not a referent is held like a plain pointer, and its owner must keep it alive. Main
// thread only.
#pragma once

#include "framework/border/referent.h"

namespace vs::project_resave {

// Returns the referent of an object; null if the object is not one. A ref asks again at each registration, so
// this must give the same answer as long as the object lives.
template <class Impl>
struct ref_traits {
    static referent_pointer referent_of(const interface_to<Impl>& object) {
        return cast_to<referent_impl>(object);
    }
};

// A smart pointer to an object. A ref made without an object, or of a null pair, is null. Each copy and each
// move calls the object, so pass refs by reference.
template <class Impl, bool Weak = false, class Traits = ref_traits<Impl>>
class ref final : public referrer_impl {
public:
    ref() = default;
    // Explicit, because the end of a temporary ref can destroy the object.
    explicit ref(const interface_to<Impl>& object) { take(object); }
    ref(const ref& other) : referrer_impl(other) { take(other.held_); }
    // A moved ref registers at its new address before the old one leaves, so the object never lacks a
    // referrer.
    ref(ref&& other) noexcept : referrer_impl(other) {
        take(other.held_);
        other.reset();
    }
    ref& operator=(const ref& other) {
        assign(other.held_);
        return *this;
    }
    ref& operator=(ref&& other) noexcept {
        if (this == &other) return *this;
        assign(other.held_);
        other.reset();
        return *this;
    }
    ~ref() { reset(); }

    // Makes the ref hold the new object, or nothing for null. It registers with the new object before it
    // leaves the old one, so assigning the object that it already holds is safe.
    void assign(const interface_to<Impl>& object) {
        const interface_to<Impl> old = held_;
        take(object);
        leave(old);
    }
    // Makes the ref hold nothing; the object is destroyed if no other ref keeps it alive. The ref is null
    // before that, so code of the object that ends sees it as null.
    void reset() {
        const interface_to<Impl> old = held_;
        held_ = {};
        leave(old);
    }
    // Returns the object, borrowed for as long as this ref holds it; null if it holds none. A call on the
    // object can end it, so copy the ref before a call that may reset it.
    const interface_to<Impl>& get() const { return held_; }
    explicit operator bool() const { return static_cast<bool>(held_); }

    // Called by the object when it is destroyed; the ref becomes null without leaving the object's list.
    void on_referent_closed() override { held_ = {}; }
    // Asked by the object after each removal of a referrer.
    bool keeps_alive() override { return !Weak; }

private:
    // Register with an object, and remove the registration; an object that is not a referent is ignored.
    void take(const interface_to<Impl>& object) {
        held_ = object;
        call<&referent_impl::add_referrer>(Traits::referent_of(object), pointer_to<referrer_impl>(*this));
    }
    void leave(const interface_to<Impl>& object) {
        call<&referent_impl::remove_referrer>(Traits::referent_of(object), pointer_to<referrer_impl>(*this));
    }

    interface_to<Impl> held_;
};

// Refers to an object that others keep alive. When the last ref is gone, the object is destroyed and notifies
// each weak_ref, so get() never returns a pointer to a destroyed referent. An object that is not a referent
// notifies nobody: reset the weak_ref before the object is destroyed. Resetting the weak_ref of a referent
// without any ref destroys it.
template <class Impl, class Traits = ref_traits<Impl>>
using weak_ref = ref<Impl, true, Traits>;

// An object that is a referent: either itself, or by wrapping another referent whose lifetime it shares. It
// answers to the referent interface only; `referent` below adds others.
class obj : public objbase {
public:
    obj() = default;
    explicit obj(const referent_pointer& wrapped_referent) : wrapped_(wrapped_referent) {}
    // Returns the wrapped referent, otherwise this object.
    referent_pointer self() override { return wrapped_ ? wrapped_.get() : pointer_to<referent_impl>(*this); }
    // Code that refers to this object refers to the referent that determines its lifetime.
    void query(const char* asked, const void** table, void** instance) override {
        if (std::strcmp(asked, referent_impl::name) != 0) return;
        const referent_pointer living = self();
        *table = living.table;
        *instance = living.instance;
    }

private:
    ref<referent_impl> wrapped_;
};

// A provider and a referent in one object: class x : public referent<x_impl>. `I` may also be a polymorphic
// chain. Create it with new and take a ref at once; never put it on the stack or into another object, since
// the last ref deletes it.
template <class I>
class referent : public I, public obj {
public:
    using obj::obj;
    void query(const char* asked, const void** table, void** instance) override {
        I::query(asked, table, instance);
        obj::query(asked, table, instance); // the names differ, so at most one of the two fills
    }
    void identity(interface_pointer& out) override { I::identity(out); }
};

// The same under the name used by classes that add operations.
template <class I>
using referentbase = referent<I>;

} // namespace vs::project_resave
