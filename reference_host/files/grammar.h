// The grammar of the host's files: every element with its attributes and children, as one table in
// grammar.cpp. Each name is used once, so an element has the same form wherever it occurs.
#pragma once

#include <cstdint>
#include <optional>

#include <pugixml.hpp>

#include "reference_host/model/counted.h"

namespace vestra::files {

inline constexpr int deepest_element = 64; // the root has depth 1
// Limit for all tuples of a file together, because a few bytes can request a tuple of any size.
inline constexpr std::uint32_t most_tuple_elements = 1U << 24;

// A violation of the grammar and the element that contains it.
struct fault {
    pugi::xml_node at;
    wide_string reason;
};

// Returns the first fault below a root element with a known name, in file order: an unknown, missing or
// duplicate attribute or element, text between elements, or too deep nesting. Values are not checked.
std::optional<fault> first_fault(pugi::xml_node root);

} // namespace vestra::files
