// A second, hand-written copy of the published tables that hosts and other bundles were compiled against.
//
// Each folder with interfaces has a source pinned_tables.cpp, with one list for each interface:
//
//     template struct table<button_impl, "vs_button_interface_1",
//         slot<void(to<string_visitor_impl>), &button_impl::caption>,
//         slot<void(), &button_impl::click>>;
//
// It compiles only if the interface has this name and exactly these operations, in this order and with these
// types. A list is written by hand and never changes: CONTRIBUTING.md says how to add one.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

#include "framework/border/interface.h"

namespace vs::project_resave::pinned {

// A pair of pointers, by the class of its interface. Lists do not use the usual alias, which may come to mean
// a newer version.
template <class Impl>
using to = interface_to<Impl>;

// A string literal as a template argument.
template <size_t Size>
struct interface_name {
    consteval interface_name(const char (&literal)[Size]) { std::copy_n(literal, Size, text); }
    char text[Size];
};

// One operation, with the signature that was published.
template <class Signature, auto Operation>
struct slot;

template <class Result, class... Args, auto Operation>
struct slot<Result(Args...), Operation> {
    using provider = typename border::operation<Operation>::provider;
    // The type of the function in the table. A pair is returned through a hidden output parameter.
    using function = std::conditional_t<std::is_base_of_v<interface_pointer, Result>,
                                        void (*)(interface_pointer*, const void*, void*, Args...) noexcept,
                                        Result (*)(const void*, void*, Args...) noexcept>;

    static_assert(std::is_same_v<decltype(Operation), Result (provider::*)(Args...)>,
                  "the operation has another signature than the published one");
    static_assert(std::is_same_v<decltype(border::operation<Operation>::function()), function>,
                  "the function in the table has another form than the published one");

    static constexpr auto operation = Operation;
};

// A table with the identity in entry 0 and the first slot in entry `First`.
template <size_t First, class Impl, interface_name Name, class... Slots>
struct table_from {
    static_assert(std::string_view(Impl::name) == Name.text, "the interface has another name");
    static_assert(border::first_operation<Impl> == First, "the first slot is in another entry");
    static_assert(std::is_same_v<typename Impl::operations, operation_list<Slots::operation...>>,
                  "the table has other slots, or the same in another order");
    static_assert(sizeof(to<Impl>) == 2 * sizeof(void*) && std::is_trivially_copyable_v<to<Impl>>,
                  "a pointer to the interface is not two plain words");
};

// A table whose entry 1 is the base; the slots begin in entry 2.
template <class Impl, interface_name Name, class... Slots>
struct table : table_from<2, Impl, Name, Slots...> {};

// A table whose slots begin in entry 1.
template <class Impl, interface_name Name, class... Slots>
struct rooted_table : table_from<1, Impl, Name, Slots...> {};

// True if an enumerator has the published type and value.
template <auto Enumerator, auto Value>
constexpr bool number = std::is_same_v<std::underlying_type_t<decltype(Enumerator)>,
                                       decltype(Value)>&& static_cast<decltype(Value)>(Enumerator) == Value;

} // namespace vs::project_resave::pinned
