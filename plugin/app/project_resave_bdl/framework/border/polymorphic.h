// One C++ object that implements several interfaces: polymorphic<A_impl, polymorphic<B_impl>> finds both by
// name, each with a table and the address of its own part, and both have one identity. For use as a base
// class of providers.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

// End of the chain: finds nothing.
class polymorphic_base {
public:
    void query(const char*, const void**, void**) {}

protected:
    ~polymorphic_base() = default;
};

// The class side of one interface within such an object.
template <class Impl>
using polymorphic_impl = Impl;

// Passes a question on to the next in the chain.
template <class Next>
class polymorphic_next : public Next {
public:
    void query(const char* asked, const void** table, void** instance) {
        Next::query(asked, table, instance);
    }

protected:
    ~polymorphic_next() = default;
};

template <class Impl, class Next = polymorphic_base>
class polymorphic : public polymorphic_impl<Impl>, public polymorphic_next<Next> {
public:
    // Looks for the name among this object's interfaces, in the order of the bases.
    void query(const char* asked, const void** table, void** instance) {
        const void* const before = *table;
        Impl::query(asked, table, instance);
        if (*table == before) polymorphic_next<Next>::query(asked, table, instance);
    }
    // The identity is that of the first interface.
    void identity(interface_pointer& out) { out = identity_of(static_cast<Impl&>(*this)); }

protected:
    ~polymorphic() = default;
};

} // namespace vs::project_resave
