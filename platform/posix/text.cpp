#include "platform/text.h"

#include <locale.h>
#include <wctype.h>

#include <algorithm>
#include <array>

#include "platform/posix/byte_page.h"

namespace vs::project_resave::platform {

namespace {

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
