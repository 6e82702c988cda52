// The host's dynamic value, and the table of extra values that a layer carries under narrow keys.
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

struct tuple : counted {
    std::vector<any> elements;
    friend bool operator==(const tuple& a, const tuple& b);
};

// One value and the code of its type; copies are deep. The code is the place of the type in `payload`:
// 0 empty, 1 tuple, 2 int32, 3 double, 4 bool, 5 narrow text, 6 wide text.
class any {
public:
    using payload = std::variant<std::monostate, tuple, std::int32_t, double, bool, std::string, wide_string>;

    any() = default;
    explicit any(payload initial) : value(std::move(initial)) {}

    std::uint32_t type() const { return static_cast<std::uint32_t>(value.index()); }
    tuple* as_tuple() { return std::get_if<tuple>(&value); }
    const wide_string* as_text() const { return std::get_if<wide_string>(&value); }
    friend bool operator==(const any&, const any&) = default;

    payload value;
};

inline bool operator==(const tuple& a, const tuple& b) { return a.elements == b.elements; }

struct extra {
    std::string key;
    any value;
    friend bool operator==(const extra&, const extra&) = default;
};

// Rows in the order they were entered, each key once. A layer has a handful, so a look-up walks them.
class extra_table {
public:
    const std::vector<extra>& rows() const { return rows_; }
    std::vector<extra>& rows() { return rows_; }
    // Null if the key is not there. Compared whole and case-sensitively.
    any* find(std::string_view key) {
        for (extra& row : rows_)
            if (row.key == key) return &row.value;
        return nullptr;
    }
    // The value under the key, made empty if it was not there. Addresses of other values may change.
    any& set(std::string_view key) {
        any* found = find(key);
        return found ? *found : rows_.emplace_back(extra{std::string(key), {}}).value;
    }

private:
    std::vector<extra> rows_;
};

} // namespace vestra
