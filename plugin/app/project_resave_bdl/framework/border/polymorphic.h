// Lets one C++ object implement several interfaces: polymorphic<A_impl, polymorphic<B_impl>> finds both by
// name. Each has its own table and the address of its own part of the object, and both have one identity.
// Used as a base class of providers.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

// End of the chain: finds no interface.
class polymorphic_base {
public:
    void query(const char*, const void**, void**) {}

protected:
    ~polymorphic_base() = default;
};

// The part of such an object that implements one interface.
template <class Impl>
using polymorphic_impl = Impl;

// Passes a query on to the next interface in the chain.
template <class Next>
class polymorphic_next : public Next {
public:
    void query(const char* asked, const void** table, void** instance) {
        Next::query(asked, table, instance);
    }

protected:
    ~polymorphic_next() = default;
};

// One interface of the chain, followed by the rest of it. The first interface gives the object its identity.
// A class that adds a base with an identity of its own must override `query` and `identity`.
template <class Impl, class Next = polymorphic_base>
class polymorphic : public polymorphic_impl<Impl>, public polymorphic_next<Next> {
public:
    // Looks for the name among this object's interfaces, in the order of the chain. Leaves the outputs
    // unchanged if none of them has it.
    void query(const char* asked, const void** table, void** instance) {
        const void* const before = *table;
        Impl::query(asked, table, instance);
        if (*table == before) polymorphic_next<Next>::query(asked, table, instance);
    }
    // Sets `out` to the identity of the first interface.
    void identity(interface_pointer& out) { out = identity_of(static_cast<Impl&>(*this)); }

protected:
    ~polymorphic() = default;
};

} // namespace vs::project_resave
