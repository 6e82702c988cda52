// Parsing, printing and random generation of uuids.
#include "reference_host/model/uuid.h"

#include <cstring>
#include <random>

namespace vestra {
namespace {

bool hyphen_before(std::size_t byte) { return byte == 4 || byte == 6 || byte == 8 || byte == 10; }

int digit_value(char16_t c) {
    if (c >= u'0' && c <= u'9') return c - u'0';
    if (c >= u'a' && c <= u'f') return c - u'a' + 10;
    if (c >= u'A' && c <= u'F') return c - u'A' + 10;
    return -1;
}

} // namespace

std::optional<uuid> uuid::parse(wide_view text) {
    if (text.size() == 38 && text.front() == u'{' && text.back() == u'}') text = text.substr(1, 36);
    if (text.size() != 36) return std::nullopt;
    uuid result;
    // The length is right, so no index below can be outside.
    std::size_t place = 0;
    for (std::size_t byte = 0; byte < result.bytes_.size(); ++byte) {
        if (hyphen_before(byte) && text[place++] != u'-') return std::nullopt;
        const int high = digit_value(text[place++]);
        const int low = digit_value(text[place++]);
        if (high < 0 || low < 0) return std::nullopt;
        result.bytes_[byte] = static_cast<uint8_t>(high * 16 + low);
    }
    return result;
}

uuid uuid::random() {
    static std::mt19937_64 source{std::random_device{}()};
    uuid result;
    const uint64_t halves[2] = {source(), source()};
    std::memcpy(result.bytes_.data(), halves, sizeof(halves));
    // The version (4, random) and the variant, as other programs expect them.
    result.bytes_[6] = static_cast<uint8_t>((result.bytes_[6] & 0x0F) | 0x40);
    result.bytes_[8] = static_cast<uint8_t>((result.bytes_[8] & 0x3F) | 0x80);
    return result;
}

wide_string uuid::text() const {
    if (!has_value()) return {};
    static constexpr wide_view digits = u"0123456789abcdef";
    wide_string text(36, u'-');
    auto place = text.begin();
    for (std::size_t byte = 0; byte < bytes_.size(); ++byte) {
        if (hyphen_before(byte)) ++place;
        *place++ = digits[bytes_[byte] >> 4];
        *place++ = digits[bytes_[byte] & 15];
    }
    return text;
}

std::size_t uuid::hash() const {
    uint64_t halves[2];
    std::memcpy(halves, bytes_.data(), sizeof(halves));
    return static_cast<std::size_t>((halves[0] ^ (halves[1] * 0x9E3779B97F4A7C15U)) * 0xBF58476D1CE4E5B9U);
}

} // namespace vestra
