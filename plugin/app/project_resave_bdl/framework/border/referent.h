// Reference counting: a referent knows its referrers and is destroyed when no referrer that keeps it alive is
// left. Code uses ref.h; these are the tables below it.
//
// A new referent has no referrer: its creator must take a ref at once or delete it. Counts are not atomic;
// main thread only.
#pragma once

#include <algorithm>
#include <cstdint>
#include <list>

#include "framework/border/polymorphic.h"

namespace vs::project_resave {

// Who implements: an object that holds a reference. Who calls: the referent.
class referrer_impl : public interface_of<referrer_impl> {
public:
    static constexpr const char* name = "vs_referrer_interface_1";
    static constexpr bool rooted_in_identity = true;
    // The object is being destroyed: clear the pointer and do not call remove_referrer.
    virtual void on_referent_closed() = 0;
    // True if the object must live while this referrer is on its list; false for a weak referrer.
    virtual bool keeps_alive() = 0;
    using operations = operation_list<&referrer_impl::on_referent_closed, &referrer_impl::keeps_alive>;

protected:
    ~referrer_impl() = default;
};
using referrer_pointer = interface_to<referrer_impl>;

// Who implements: an object with a reference count. Who calls: code that refers to it.
class referent_impl : public interface_of<referent_impl> {
public:
    static constexpr const char* name = "vs_referent_interface_1";
    static constexpr bool rooted_in_identity = true;
    // Appends the referrer, which must stay valid until it is removed or the object is destroyed. Returns the
    // number of referrers after that. A referrer that is added twice must be removed twice.
    virtual uint32_t add_referrer(referrer_pointer referrer) = 0;
    // Removes the first equal referrer, if there is one. Then the object is destroyed unless a remaining
    // referrer keeps it alive, so do not use it after the call without a ref. A null referrer on the list
    // counts as one that keeps it alive.
    virtual void remove_referrer(referrer_pointer referrer) = 0;
    using operations = operation_list<&referent_impl::add_referrer, &referent_impl::remove_referrer>;

protected:
    ~referent_impl() = default;
};
using referent_pointer = interface_to<referent_impl>;

// Base of referents made with new: keeps the list of referrers and destroys the object. Finding a referrer is
// linear in their number, which is small.
class objbase : public referent_impl {
public:
    objbase() = default;
    objbase(const objbase&) = delete;
    objbase& operator=(const objbase&) = delete;

    uint32_t add_referrer(referrer_pointer referrer) override;
    void remove_referrer(referrer_pointer referrer) override;
    // Returns the referent that determines this object's lifetime: its own, or that of an object it wraps.
    virtual referent_pointer self() = 0;
    // Does the same with an output parameter. Kept for other bundles; nothing here calls it.
    virtual void as_referent(referent_pointer& out);
    // Calls on_referent_closed() of each remaining referrer. By then the derived class is destroyed already,
    // so a referrer must not call the object.
    virtual ~objbase();

private:
    // In the order of registration; the same referrer can be on it several times.
    std::list<referrer_pointer> referrers_;
    bool closing_ = false; // set while the object is being destroyed, so that no removal destroys it again
};

inline uint32_t objbase::add_referrer(referrer_pointer referrer) {
    referrers_.push_back(referrer);
    return static_cast<uint32_t>(referrers_.size());
}

inline void objbase::remove_referrer(referrer_pointer referrer) {
    const auto row = std::find(referrers_.begin(), referrers_.end(), referrer);
    if (row != referrers_.end()) referrers_.erase(row);
    if (closing_) return;
    const bool kept = std::any_of(referrers_.begin(), referrers_.end(), [](const referrer_pointer& other) {
        return !other || call<&referrer_impl::keeps_alive>(other);
    });
    if (kept) return;
    closing_ = true;
    delete this;
}

inline void objbase::as_referent(referent_pointer& out) { out = self(); }

inline objbase::~objbase() {
    closing_ = true;
    while (!referrers_.empty()) {
        const referrer_pointer referrer = referrers_.front();
        referrers_.pop_front();
        call<&referrer_impl::on_referent_closed>(referrer);
    }
}

} // namespace vs::project_resave
