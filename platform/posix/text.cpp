// Letter case and code pages from the C library, independent of the user's locale: the same two names must be
// equal on every machine.

#include "platform/text.h"

#include <iconv.h>
#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <array>
#include <map>
#include <mutex>
#include <optional>
#include <unordered_map>

namespace vs::project_resave::platform {

namespace {

constexpr char16_t unknown_character = 0xFFFD;

using case_table = std::array<char16_t, 0x10000>;

case_table make_lower_table() {
    case_table lower{};
    const locale_t locale = ::newlocale(LC_CTYPE_MASK, "C.UTF-8", nullptr);
    for (size_t c = 0; c < lower.size(); ++c) {
        const wint_t wide = static_cast<wint_t>(c);
        const wint_t small = locale != nullptr ? ::towlower_l(wide, locale) : ::towlower(wide);
        // Characters above U+FFFF are surrogate pairs here and stay as they are.
        lower[c] = static_cast<char16_t>(small < lower.size() ? small : wide);
    }
    if (locale != nullptr) ::freelocale(locale);
    return lower;
}

const case_table& lower_table() {
    static const case_table table = make_lower_table();
    return table;
}

// A code page with one byte per character.
struct byte_page {
    std::array<char16_t, 256> wide{};         // the character for each byte
    std::unordered_map<char16_t, char> bytes; // the byte for each character in the page
};

std::optional<byte_page> make_page(unsigned code_page) {
    const std::string name = code_page == 20127 ? "US-ASCII" : "CP" + std::to_string(code_page);
    const iconv_t converter = ::iconv_open("UTF-16LE", name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt; // NOLINT: how iconv reports failure
    byte_page page;
    for (unsigned value = 0; value < page.wide.size(); ++value) {
        char byte = static_cast<char>(value);
        std::array<unsigned char, 8> out{};
        char* in_at = &byte;
        char* out_at = reinterpret_cast<char*>(out.data());
        size_t in_left = 1;
        size_t out_left = out.size();
        const bool converted = ::iconv(converter, &in_at, &in_left, &out_at, &out_left) != size_t(-1);
        ::iconv(converter, nullptr, nullptr, &out_at,
                &out_left); // flushes a letter held back
        // Windows maps unassigned bytes of this range to the control characters of the same number; so does
        // this.
        const bool is_control = value >= 0x80 && value < 0xA0 && code_page != 20127;
        const char16_t unassigned = is_control ? static_cast<char16_t>(value) : unknown_character;
        page.wide[value] = converted ? static_cast<char16_t>(out[0] | (out[1] << 8)) : unassigned;
        if (page.wide[value] != unknown_character) page.bytes.emplace(page.wide[value], byte);
    }
    ::iconv_close(converter);
    return page;
}

// Returns the page for 1250 to 1258, 866 and 20127; null for any other number. It lives until the process
// ends.
const byte_page* find_byte_page(unsigned code_page) {
    const bool is_known = (code_page >= 1250 && code_page <= 1258) || code_page == 866 || code_page == 20127;
    if (!is_known) return nullptr;
    static std::mutex mutex;
    static std::map<unsigned, std::optional<byte_page>> pages;
    const std::lock_guard guard(mutex);
    const auto [page, is_new] = pages.try_emplace(code_page);
    if (is_new) page->second = make_page(code_page);
    return page->second ? &*page->second : nullptr;
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
    if (is_utf8(code_page)) return to_utf8(text);
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
    if (is_utf8(code_page)) return from_utf8(bytes);
    wide_string text;
    const byte_page* const page = find_byte_page(code_page);
    if (page == nullptr) return text;
    text.reserve(bytes.size());
    for (const char byte : bytes) text += page->wide[static_cast<unsigned char>(byte)];
    return text;
}

} // namespace vs::project_resave::platform
