// The host's dynamic value, and the table of extra values that a layer stores under narrow keys.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
#include <vector>

#include "reference_host/model/counted.h"

namespace vestra {

class any;

// A list of values. Elements that were never set are empty values.
struct tuple : counted {
    std::vector<any> elements;
    friend bool operator==(const tuple& a, const tuple& b);
};

// A value together with its type code; copies are deep. The code is the index of the type in `payload`: 0
// empty, 1 tuple, 2 int32, 3 double, 4 bool, 5 narrow text, 6 wide text.
class any {
public:
    // The order of the types gives the codes, which bundles know, so it must not change.
    using payload = std::variant<std::monostate, tuple, std::int32_t, double, bool, std::string, wide_string>;

    any() = default;
    explicit any(payload initial) : value(std::move(initial)) {}

    std::uint32_t type() const { return static_cast<std::uint32_t>(value.index()); }
    // Return the value if it has this type; null otherwise. The pointer is valid until the value changes.
    tuple* as_tuple() { return std::get_if<tuple>(&value); }
    const wide_string* as_text() const { return std::get_if<wide_string>(&value); }
    friend bool operator==(const any&, const any&) = default;

    payload value;
};

inline bool operator==(const tuple& a, const tuple& b) { return a.elements == b.elements; }

// One row of the table below: a key in narrow text, whose bytes are not interpreted, and its value.
struct extra {
    std::string key;
    any value;
    friend bool operator==(const extra&, const extra&) = default;
};

// Rows in the order of insertion, with unique keys. A layer has only a few, so a look-up is a linear search.
class extra_table {
public:
    const std::vector<extra>& rows() const { return rows_; }
    // For readers and for changes of values; code that appends rows must keep the keys unique.
    std::vector<extra>& rows() { return rows_; }
    // Returns null if the key is missing. Keys are compared as a whole and case-sensitively. The pointer is
    // valid until a row is added.
    any* find(std::string_view key) {
        for (extra& row : rows_)
            if (row.key == key) return &row.value;
        return nullptr;
    }
    // Returns the value of the key; adds an empty one if it is missing, which can move the other values.
    any& set(std::string_view key) {
        any* found = find(key);
        return found ? *found : rows_.emplace_back(extra{std::string(key), {}}).value;
    }

private:
    std::vector<extra> rows_;
};

} // namespace vestra
