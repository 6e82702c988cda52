// The bodies of the C functions: each answers zero for a null handle, and nothing thrown leaves it.
#pragma once

#include <memory>
#include <string_view>
#include <utility>

#include "framework/border/caught.h"
#include "reference_host/api/handles.h"

namespace vestra::api {

// What `function` answers, or zero when it throws.
template <class Function>
auto guarded(Function function) noexcept -> decltype(function()) {
    try {
        return function();
    } catch (...) {
        vs::project_resave::record_caught("function of the host");
        return decltype(function())();
    }
}

// What `function` answers for the object, or zero for a null handle and when it throws.
template <class Handle, class Function>
auto on(Handle* handle, Function function) noexcept -> decltype(function(*to_model(handle))) {
    using result = decltype(function(*to_model(handle)));
    if (!handle) return result();
    return guarded([&]() -> result { return function(*to_model(handle)); });
}

// An object that the caller owns from now on; null if it cannot be made.
template <class Handle, class... Arguments>
Handle* create(Arguments&&... arguments) noexcept {
    return guarded([&] {
        auto object = std::make_unique<model_type<Handle>>(std::forward<Arguments>(arguments)...);
        return to_handle<Handle>(object.release());
    });
}
template <class Handle>
void destroy(Handle* handle) noexcept {
    const std::unique_ptr<model_type<Handle>> ending(to_model(handle));
}
template <class Handle>
void assign(Handle* target, const Handle* source) noexcept {
    if (source) on(target, [&](auto& object) { object = *to_model(source); });
}

// Containers. A member at or beyond the count is null, and removing it does nothing.
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

// Text arguments of the C functions; null counts as empty.
inline wide_view text_of(const char16_t* text) { return text ? wide_view(text) : wide_view(); }
inline std::string_view text_of(const char* text) {
    return text ? std::string_view(text) : std::string_view();
}

// Assigns a text to the caller's string.
void tell(vs_string_adp* out, const wide_string& text) noexcept;
// The same; null counts as empty.
inline void tell(vs_string_adp* out, const wide_string* text) noexcept {
    static const wide_string nothing;
    tell(out, text ? *text : nothing);
}
// The same with a text of an object.
template <class Handle, class Owner>
void tell(vs_string_adp* out, Handle* handle, wide_string Owner::*text) noexcept {
    tell(out, handle ? &(to_model(handle)->*text) : nullptr);
}

} // namespace vestra::api
