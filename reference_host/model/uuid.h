// The identity of an entity: sixteen bytes, or no value.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <optional>

#include "reference_host/model/counted.h"

namespace vestra {

// A plain value. It is counted, because bundles can own single uuids through a handle.
class uuid : public counted {
public:
    uuid() = default;

    // Parses "8-4-4-4-12" hexadecimal digits of any letter case, with or without braces. Returns nothing for
    // any other text, such as a path. All digits zero is the uuid without a value.
    static std::optional<uuid> parse(wide_view text);
    // Returns a new random uuid (version 4). Not suitable as a secret.
    static uuid random();

    // True unless all digits are zero.
    bool has_value() const { return bytes_ != std::array<uint8_t, 16>{}; }
    // Returns the digits in lower case without braces; empty if it has no value.
    wide_string text() const;
    // Mixes both halves, since made-up uuids differ in a few digits only.
    std::size_t hash() const;
    friend bool operator==(const uuid& a, const uuid& b) { return a.bytes_ == b.bytes_; }

private:
    // In the order of the digits in the text.
    std::array<uint8_t, 16> bytes_{};
};

} // namespace vestra

template <>
struct std::hash<vestra::uuid> {
    std::size_t operator()(const vestra::uuid& id) const { return id.hash(); }
};
