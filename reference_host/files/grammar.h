// What may stand in the files of the host: every element with its attributes and children, as one table in
// grammar.cpp. Names are used once, so an element looks the same wherever it stands.
#pragma once

#include <cstdint>
#include <optional>

#include <pugixml.hpp>

#include "reference_host/model/counted.h"

namespace vestra::files {

inline constexpr int deepest_element = 64; // the root is 1
// Of all tuples in a file: a few bytes can ask for a tuple of any size.
inline constexpr std::uint32_t most_tuple_elements = 1U << 24;

struct fault {
    pugi::xml_node at;
    wide_string reason;
};

// The first fault below a root element of a known name, in the order of the file: an unknown, missing or
// doubled attribute or element, text between the elements, too deep nesting. Values are not looked at.
std::optional<fault> first_fault(pugi::xml_node root);

} // namespace vestra::files
