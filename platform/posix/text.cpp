#include "platform/text.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <array>

#include "platform/posix/byte_page.h"

namespace vs::project_resave::platform {

namespace {

constexpr char16_t replacement = 0xFFFD;

using case_table = std::array<char16_t, 0x10000>;

case_table make_lower_table() {
    case_table lower{};
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (size_t c = 0; c < lower.size(); ++c) {
        const wint_t wide = static_cast<wint_t>(c);
        const wint_t small = locale != nullptr ? ::towlower_l(wide, locale) : ::towlower(wide);
        lower[c] = static_cast<char16_t>(small < lower.size() ? small : wide);
    }
    if (locale != nullptr) ::freelocale(locale);
    return lower;
}

const case_table& lower_table() {
    static const case_table table = make_lower_table();
    return table;
}

bool is_high_half(char32_t c) { return c >= 0xD800 && c < 0xDC00; }
bool is_low_half(char32_t c) { return c >= 0xDC00 && c < 0xE000; }

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

std::string utf8_from_wide(wide_view text) {
    // Most text is plain: it is taken over in one go.
    const auto plain =
        static_cast<size_t>(std::ranges::find_if(text, [](char16_t c) { return c >= 0x80; }) - text.begin());
    std::string bytes(plain, char());
    std::ranges::transform(text.substr(0, plain), bytes.begin(),
                           [](char16_t c) { return static_cast<char>(c); });
    for (size_t i = plain; i < text.size(); ++i) {
        char32_t c = text[i];
        if (is_high_half(c) && i + 1 < text.size() && is_low_half(text[i + 1]))
            c = 0x10000 + ((c - 0xD800) << 10) + (text[++i] - 0xDC00U);
        else if (is_high_half(c) || is_low_half(c))
            c = replacement;
        append_utf8(bytes, c);
    }
    return bytes;
}

size_t utf8_length(unsigned char lead) {
    if (lead < 0x80) return 1;
    if (lead < 0xC2 || lead > 0xF4) return 0;
    return lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
}

// The character at the head of `bytes`, which it takes off; of a broken one as much as was right.
char32_t take_utf8(std::string_view& bytes) {
    const auto byte = [&](size_t i) { return static_cast<unsigned char>(bytes[i]); };
    const unsigned char lead = byte(0);
    const size_t length = utf8_length(lead);
    // The second byte's range shuts out overlong forms, halves of surrogate pairs and what is past U+10FFFF.
    const unsigned char low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const unsigned char high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    char32_t c = length > 1 ? lead & (0x7FU >> length) : lead;
    size_t taken = 1;
    for (; taken < length && taken < bytes.size(); ++taken) {
        const unsigned char next = byte(taken);
        if (next < (taken == 1 ? low : 0x80) || next > (taken == 1 ? high : 0xBF)) break;
        c = (c << 6) | (next & 0x3FU);
    }
    bytes.remove_prefix(taken);
    return taken == length ? c : replacement;
}

wide_string wide_from_utf8(std::string_view bytes) {
    const auto plain = static_cast<size_t>(
        std::ranges::find_if(bytes, [](char c) { return static_cast<unsigned char>(c) >= 0x80; }) -
        bytes.begin());
    wide_string text(bytes.begin(), bytes.begin() + plain);
    bytes.remove_prefix(plain);
    while (!bytes.empty()) {
        const char32_t c = take_utf8(bytes);
        if (c < 0x10000) {
            text += static_cast<char16_t>(c);
        } else {
            text += static_cast<char16_t>(0xD800 + ((c - 0x10000) >> 10));
            text += static_cast<char16_t>(0xDC00 + (c & 0x3FF));
        }
    }
    return text;
}

bool is_utf8(unsigned code_page) { return code_page == code_page_utf8 || code_page == code_page_active; }

} // namespace

int compare_no_case(wide_view a, wide_view b) {
    const case_table& lower = lower_table();
    const size_t shared = std::min(a.size(), b.size());
    for (size_t i = 0; i < shared; ++i)
        if (lower[a[i]] != lower[b[i]]) return lower[a[i]] < lower[b[i]] ? -1 : 1;
    return a.size() == b.size() ? 0 : a.size() < b.size() ? -1 : 1;
}

void lower_in_place(wide_string& text) {
    const case_table& lower = lower_table();
    for (char16_t& c : text) c = lower[c];
}

wide_string folded(wide_view text) {
    wide_string key(text);
    lower_in_place(key);
    return key;
}

std::string to_bytes(wide_view text, unsigned code_page) {
    if (is_utf8(code_page)) return utf8_from_wide(text);
    std::string bytes;
    const byte_page* const page = find_byte_page(code_page);
    if (page == nullptr) return bytes;
    bytes.reserve(text.size());
    for (const char16_t c : text) {
        const auto found = page->bytes.find(c);
        bytes += found != page->bytes.end() ? found->second : '?';
    }
    return bytes;
}

wide_string from_bytes(std::string_view bytes, unsigned code_page) {
    if (is_utf8(code_page)) return wide_from_utf8(bytes);
    wide_string text;
    const byte_page* const page = find_byte_page(code_page);
    if (page == nullptr) return text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += page->wide[static_cast<unsigned char>(byte)];
    return text;
}

} // namespace vs::project_resave::platform
