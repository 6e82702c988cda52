// Helpers for the bodies of the C functions: a null handle gives zero, and no exception leaves a C function.
//
// A handle that is not null is trusted: nothing checks that it belongs to a living object of its type. Main
// thread only.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "framework/border/caught.h"
#include "reference_host/api/handles.h"

namespace vestra::api {

// Returns what `function` returns, or zero if it throws. The exception is recorded (record_caught), and the
// bundle only sees the zero.
template <class Function>
auto guarded(Function function) noexcept -> decltype(function()) {
    try {
        return function();
    } catch (...) {
        vs::project_resave::record_caught("function of the host");
        return decltype(function())();
    }
}

// Returns what `function` returns for the object behind the handle, or zero for a null handle or if it
// throws. A const handle gives a const object.
template <class Handle, class Function>
auto on(Handle* handle, Function function) noexcept -> decltype(function(*to_model(handle))) {
    using result = decltype(function(*to_model(handle)));
    if (!handle) return result();
    return guarded([&]() -> result { return function(*to_model(handle)); });
}

// Creates an object from the arguments of its constructor. The caller owns it and passes it to `destroy`.
// Returns null if it cannot be created.
template <class Handle, class... Arguments>
Handle* create(Arguments&&... arguments) noexcept {
    return guarded([&] {
        auto object = std::make_unique<model_type<Handle>>(std::forward<Arguments>(arguments)...);
        return to_handle<Handle>(object.release());
    });
}
// Destroys the object; does nothing for a null handle.
template <class Handle>
void destroy(Handle* handle) noexcept {
    const std::unique_ptr<model_type<Handle>> ending(to_model(handle));
}
// Copies `source` to `target`; does nothing if either is null.
template <class Handle>
void assign(Handle* target, const Handle* source) noexcept {
    if (source) on(target, [&](auto& object) { object = *to_model(source); });
}

// Containers. `Member` is the handle type of the members. Returns null for an index at or beyond the count;
// removing such an index does nothing.
template <class Container>
std::uint32_t count_of(Container* container) noexcept {
    return on(container, [](auto& list) { return list.count(); });
}
template <class Member, class Container>
Member* member_of(Container* container, std::uint32_t index) noexcept {
    return on(container, [&](auto& list) { return to_handle<Member>(list.at(index)); });
}
template <class Container>
void remove_member(Container* container, std::uint32_t index) noexcept {
    on(container, [&](auto& list) { list.remove(index); });
}

// Text arguments of the C functions; a null pointer is treated as an empty text. The result is valid as long
// as the caller's text.
inline wide_view text_of(const char16_t* text) { return text ? wide_view(text) : wide_view(); }
inline std::string_view text_of(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

// Assigns the text, up to its first zero, to the caller's string. Does nothing for a null adapter or for one
// without a function to assign.
void tell(vs_string_adp* out, const wide_string& text) noexcept;
// As above; null is treated as empty.
inline void tell(vs_string_adp* out, const wide_string* text) noexcept {
    static const wide_string nothing;
    tell(out, text ? *text : nothing);
}
// As above, with a text member of an object; a null handle gives the empty text.
template <class Handle, class Owner>
void tell(vs_string_adp* out, Handle* handle, wide_string Owner::*text) noexcept {
    tell(out, handle ? &(to_model(handle)->*text) : nullptr);
}

} // namespace vestra::api
