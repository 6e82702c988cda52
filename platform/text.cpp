// UTF-8 and UTF-16, converted by hand so that broken text gives the same result on every target.

#include "platform/text.h"

#include <algorithm>

namespace vs::project_resave::platform {

namespace {

constexpr char16_t replacement = 0xFFFD;

void append_utf8(std::string& bytes, char32_t c) {
    const auto tail = [&](int shift) { bytes += static_cast<char>(0x80 | ((c >> shift) & 0x3F)); };
    if (c < 0x80) {
        bytes += static_cast<char>(c);
    } else if (c < 0x800) {
        bytes += static_cast<char>(0xC0 | (c >> 6));
        tail(0);
    } else if (c < 0x10000) {
        bytes += static_cast<char>(0xE0 | (c >> 12));
        tail(6);
        tail(0);
    } else {
        bytes += static_cast<char>(0xF0 | (c >> 18));
        tail(12);
        tail(6);
        tail(0);
    }
}

// Returns the length of a character by its first byte; 0 if no character begins with it.
size_t utf8_length(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// Takes the character `c` from the front of `bytes`. Returns false if it is broken: then its valid first
// bytes are taken, at least one byte.
bool take_utf8(std::string_view& bytes, char32_t& c) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(0);
    const size_t length = utf8_length(lead);
    // The range of the second byte excludes overlong forms, halves of surrogate pairs and everything beyond
    // U+10FFFF.
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    c = length > 1 ? lead & (0x7FU >> length) : lead;
    size_t taken = 1;
    for (; taken < length && taken < bytes.size(); ++taken) {
        const unsigned char next = byte(taken);
        if (next < (taken == 1 ? low : 0x80) || next > (taken == 1 ? high : 0xBF)) break;
        c = (c << 6) | (next & 0x3FU);
    }
    bytes.remove_prefix(taken);
    return taken == length;
}

// Returns the length of the ASCII part at the front. Most text is ASCII only, and that part is copied at
// once.
size_t plain_length(const auto& text) {
    const auto is_foreign = [](auto c) { return static_cast<char32_t>(c) >= 0x80; };
    return static_cast<size_t>(std::ranges::find_if(text, is_foreign) - text.begin());
}

} // namespace

std::string to_utf8(wide_view text) {
    const size_t plain = plain_length(text);
    std::string bytes(plain, char());
    std::ranges::transform(text.substr(0, plain), bytes.begin(),
                           [](char16_t c) { return static_cast<char>(c); });
    for (size_t i = plain; i < text.size(); ++i) {
        char32_t c = text[i];
        if (is_high_half(text[i]) && i + 1 < text.size() && is_low_half(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        else if (is_high_half(text[i]) || is_low_half(text[i]))
            c = replacement;
        append_utf8(bytes, c);
    }
    return bytes;
}

wide_string from_utf8(std::string_view bytes) {
    const size_t plain = plain_length(bytes);
    wide_string text(bytes.begin(), bytes.begin() + plain);
    bytes.remove_prefix(plain);
    while (!bytes.empty()) {
        char32_t c = 0;
        append_code_point(text, take_utf8(bytes, c) ? c : replacement);
    }
    return text;
}

void append_code_point(wide_string& text, char32_t c) {
    if (c < 0x10000) {
        text += static_cast<char16_t>(c);
    } else {
        text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
        text += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
    }
}

size_t valid_utf8_length(std::string_view bytes) {
    std::string_view rest = bytes;
    size_t valid = plain_length(bytes);
    rest.remove_prefix(valid);
    for (char32_t c = 0; !rest.empty() && take_utf8(rest, c);) valid = bytes.size() - rest.size();
    return valid;
}

} // namespace vs::project_resave::platform
