// Interfaces across the border between a library and its host or another library: a pair of pointers, the
// first of which points to a constant table of plain functions.
//
// An interface is declared once, as its provider class: derive from interface_of<X>, give it a name, virtual
// operations and the list of them in table order. The table, its entries, the calls of clients and the casts
// are generated from that. Entry 0 of a table returns the identity interface. Entry 1 returns the base
// interface, unless `rooted_in_identity` says that the operations begin in entry 1. The provider is called
// through the table; code that has a pair uses call, cast_to and identity_of.
//
// Rules for every operation: it runs on the host's main thread. A pair is borrowed for the call; to keep it,
// take a ref (ref.h). If the object is not a referent, its owner must say how long it lives. No exception
// leaves an entry: it is recorded there (caught.h) and the result is zero, or the `count_after_exception`
// that the provider class declares. A call through a null pair does nothing and returns zero.
#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <type_traits>
#include <utility>

#include "framework/border/caught.h"
#include "host/types.h"

namespace vs::project_resave {

using interface_pointer = vs_interface_pointer;

// A pair whose table is that of Impl. It owns nothing and copies like plain data. Code makes one with
// pointer_to or cast_to; nothing checks a pair that was put together by hand.
template <class Impl>
struct interface_to : interface_pointer {};

// The interface that every object has: it is asked for all others, and two objects are the same if their
// identities are equal.
class interface_impl;
using identity_pointer = interface_to<interface_impl>;
static_assert(sizeof(identity_pointer) == sizeof(interface_pointer));
static_assert(alignof(identity_pointer) == alignof(interface_pointer));
static_assert(std::is_standard_layout_v<identity_pointer>);
static_assert(std::is_trivially_copyable_v<identity_pointer>);

// Root of every provider class. These two are the first virtual operations of each, in this order.
class interface_impl {
public:
    // Sets both outputs if the object implements the interface with exactly this name; otherwise leaves them
    // unchanged.
    virtual void query(const char* asked, const void** table, void** instance) = 0;
    // Sets `out` to the object's identity, the same for all its interfaces. A class with several interfaces
    // must override it (polymorphic.h), or each would give the address of its own part.
    virtual void identity(interface_pointer& out);

protected:
    ~interface_impl() = default;
};

// The operations of an interface in table order, as pointers to members. Overloaded operations cannot be
// listed, so each has a separate name.
template <auto... Operations>
struct operation_list {};

namespace border {

using entry = void (*)();

// True for a result that is an interface pointer. Compilers disagree on how a class of two words is returned,
// so it never is.
template <class Result>
constexpr bool is_pair = std::is_base_of_v<interface_pointer, Result>;

// One entry for one operation: its plain function, and how to call it through a pair.
template <auto Operation, class Signature = decltype(Operation)>
struct operation;

template <auto Operation, class Impl, class Result, class... Args>
struct operation<Operation, Result (Impl::*)(Args...)> {
    using provider = Impl;

    // Calls the provider. An exception is recorded and the result is that of a failure.
    static Result run(void* instance, Args... args) noexcept {
        try {
            return (static_cast<Impl*>(instance)->*Operation)(std::forward<Args>(args)...);
        } catch (...) {
            record_caught(Impl::name);
            return failed();
        }
    }
    // Returns the result of an operation that threw.
    static Result failed() {
        if constexpr (std::is_same_v<Result, uint32_t> && requires { Impl::count_after_exception; })
            return Impl::count_after_exception;
        else
            return Result();
    }
    // The entry of most operations: the table's own pointer comes first and is not used.
    static Result plain(const void*, void* instance, Args... args) noexcept {
        return run(instance, std::forward<Args>(args)...);
    }
    // An interface pointer as result is returned through a hidden output parameter.
    static void with_output(interface_pointer* out, const void*, void* instance, Args... args) noexcept {
        if constexpr (is_pair<Result>) *out = run(instance, std::forward<Args>(args)...);
    }
    // Returns the plain function that the table holds.
    static constexpr auto function() {
        if constexpr (is_pair<Result>)
            return &with_output;
        else
            return &plain;
    }
    // Calls the function in entry `index` of the pair's table; returns zero for a null pair. The table is
    // trusted: it must be one of this interface.
    static Result call(const interface_pointer& target, size_t index, Args... args) {
        if (!target) return Result();
        const auto run_there =
            reinterpret_cast<decltype(function())>(static_cast<const entry*>(target.table)[index]);
        if constexpr (is_pair<Result>) {
            Result result;
            run_there(&result, target.table, target.instance, std::forward<Args>(args)...);
            return result;
        } else {
            return run_there(target.table, target.instance, std::forward<Args>(args)...);
        }
    }
};

// Returns the position of an operation in a list; the largest value if it is not in the list. Evaluated by
// the compiler, so a call costs one look-up in the table.
template <auto Operation, auto... Operations>
constexpr size_t place_of(operation_list<Operations...>) {
    size_t place = 0;
    const bool found = ((std::is_same_v<std::integral_constant<decltype(Operation), Operation>,
                                        std::integral_constant<decltype(Operations), Operations>> ||
                         (++place, false)) ||
                        ...);
    return found ? place : ~size_t{0};
}

// The entry of the first operation.
template <class Impl>
constexpr size_t first_operation = Impl::rooted_in_identity ? 1 : 2;

// The function in entry 0, and in entry 1 of an interface whose base is the identity interface.
template <class Impl>
void identity_entry(interface_pointer* out, const void*, void* instance) noexcept {
    static_cast<Impl*>(instance)->identity(*out);
}

// The tables are not const. The same table is compiled in several sources, and a compiler may initialise it
// statically, in read-only memory, in one of them and on first use in another; the linker keeps only one of
// them, and then the first use would write to read-only memory.
template <class Impl, auto... Operations>
const void* build_table(operation_list<Operations...>) {
    if constexpr (Impl::rooted_in_identity) {
        static entry table[] = {reinterpret_cast<entry>(&identity_entry<Impl>),
                                reinterpret_cast<entry>(operation<Operations>::function())...};
        return table;
    } else {
        // Here the base of every such interface is the identity interface.
        static entry table[] = {reinterpret_cast<entry>(&identity_entry<Impl>),
                                reinterpret_cast<entry>(&identity_entry<Impl>),
                                reinterpret_cast<entry>(operation<Operations>::function())...};
        return table;
    }
}

} // namespace border

// Returns the only table of an interface in this library; it is built on first use and valid until the
// library is unloaded. Another library has its own table for the same interface, so compare objects by
// identity and never by table.
template <class Impl>
const void* table_of() {
    static const void* table = border::build_table<Impl>(typename Impl::operations{});
    return table;
}

// Base of a provider class; Impl is the declaring class itself. `query` answers only to the name of Impl,
// which includes its version: there is no conversion between versions.
template <class Impl>
class interface_of : public interface_impl {
public:
    static constexpr bool rooted_in_identity = false;

    void query(const char* asked, const void** table, void** instance) override {
        if (std::strcmp(asked, Impl::name) != 0) return;
        *table = table_of<Impl>();
        *instance = static_cast<Impl*>(this);
    }

protected:
    ~interface_of() = default;
};

namespace border {

// The types of the functions in entry 0 of the identity interface and of all other interfaces.
using query_entry = void (*)(const void* table, void* instance, const char* name, const void** found_table,
                             void** found_instance);
using identity_of_entry = void (*)(interface_pointer* out, const void* table, void* instance);

// The only function of the identity table: sets the outputs to the interface named `name`, or to null. `name`
// is compared by its text, since each library has its own literal.
inline void answer_query(const void*, void* instance, const char* name, const void** table,
                         void** found) noexcept {
    *table = nullptr;
    *found = nullptr;
    try {
        static_cast<interface_impl*>(instance)->query(name, table, found);
    } catch (...) {
        record_caught("query");
        *table = nullptr;
        *found = nullptr;
    }
}

inline constexpr query_entry identity_table[] = {&answer_query};

} // namespace border

// Return the pair for passing a provider to others; valid as long as the provider. For an object with several
// interfaces, name the one that is meant: pointer_to<x_impl>(object).
template <class Impl>
interface_to<Impl> pointer_to(Impl& provider) {
    return {{table_of<Impl>(), &provider}};
}
inline identity_pointer identity_of(interface_impl& provider) {
    return {{border::identity_table, &provider}};
}
inline void interface_impl::identity(interface_pointer& out) { out = identity_of(*this); }

// Calls an operation: call<&x_impl::operation>(x, arguments...). Returns its result; zero for a null pair.
// Throws nothing: the other side has recorded its exceptions.
template <auto Operation, class... Args>
auto call(const interface_to<typename border::operation<Operation>::provider>& target, Args&&... args) {
    using impl = typename border::operation<Operation>::provider;
    constexpr size_t place = border::place_of<Operation>(typename impl::operations{});
    static_assert(place != ~size_t{0}, "not in the list of operations");
    return border::operation<Operation>::call(target, border::first_operation<impl> + place,
                                              std::forward<Args>(args)...);
}

// Returns the identity of an object; null for a null pair. Compare identities to find out whether two pairs
// are the same object.
inline identity_pointer identity_of(const interface_pointer& object) {
    identity_pointer identity;
    if (object)
        (*static_cast<const border::identity_of_entry*>(object.table))(&identity, object.table,
                                                                       object.instance);
    return identity;
}

// Returns the interface of an object by name; null if the object does not implement it and for a null pair.
// The result is borrowed like the object.
inline interface_pointer query_name(const identity_pointer& object, const char* name) {
    interface_pointer found;
    if (object)
        (*static_cast<const border::query_entry*>(object.table))(object.table, object.instance, name,
                                                                 &found.table, &found.instance);
    return found;
}

// Return an object as Impl; null if it does not implement exactly this version, and for a null pair. The
// object compares the name with those of its interfaces at each call, so keep the result if it is used often.
template <class Impl>
interface_to<Impl> cast_to(const identity_pointer& object) {
    return {query_name(object, Impl::name)};
}
template <class Impl, class Other>
interface_to<Impl> cast_to(const interface_to<Other>& object) {
    return cast_to<Impl>(identity_of(static_cast<const interface_pointer&>(object)));
}

} // namespace vs::project_resave

namespace project_resave = vs::project_resave;
