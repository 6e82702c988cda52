// How many items, files, references or kinds a service says it has.
#pragma once

#include <optional>

#include "framework/border/interface.h"

namespace vs::project_resave {

inline constexpr uint32_t largest_told_count = 1'000'000;

// Nothing if the service names more than any service in order has: walking them would seem to last for ever.
// None for a null service.
template <auto Question, class Impl, class... Args>
std::optional<uint32_t> told_count(const interface_to<Impl>& service, Args... args) {
    const uint32_t count = call<Question>(service, args...);
    return count <= largest_told_count ? std::optional(count) : std::nullopt;
}

} // namespace vs::project_resave
