// Escapes and unescapes texts for XML attributes, so that every UTF-16 text survives.
#include "reference_host/files/xml_text.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <utility>

#include "platform/text.h"

namespace vestra::files {
namespace {

using namespace vs::project_resave::platform;

constexpr wide_view escape_begin = u"\\u{";

bool xml_holds(char16_t c) {
    if (c < 0x20) return c == u'\t' || c == u'\n' || c == u'\r';
    return c < 0xFFFE;
}

// Returns the number up to the closing character and the length of both; nothing if it is not a number.
std::optional<std::pair<std::uint32_t, std::size_t>> number_until(wide_view text, char16_t close, int base) {
    // A number within the range has fewer characters, and a missing end must not be searched in the whole
    // text.
    const std::size_t end = text.substr(0, 12).find(close);
    if (end == wide_view::npos) return std::nullopt;
    const std::string digits = to_utf8(text.substr(0, end));
    std::uint32_t value = 0;
    const auto [last, fault] = std::from_chars(digits.data(), digits.data() + digits.size(), value, base);
    if (fault != std::errc() || last != digits.data() + digits.size()) return std::nullopt;
    return std::pair(value, end + 1);
}

std::optional<std::pair<std::uint32_t, std::size_t>> escape_at(wide_view text) {
    if (!text.starts_with(escape_begin)) return std::nullopt;
    auto number = number_until(text.substr(escape_begin.size()), u'}', 16);
    // One to four digits before the brace; anything else is ordinary text, such as the folder C:\u{photos}.
    if (!number || number->second < 2 || number->second > 5) return std::nullopt;
    number->second += escape_begin.size();
    return number;
}

void append_escape(wide_string& out, char16_t unit) {
    static constexpr wide_view digits = u"0123456789ABCDEF";
    out += escape_begin;
    for (int shift = unit < 0x10 ? 0 : unit < 0x100 ? 4 : unit < 0x1000 ? 8 : 12; shift >= 0; shift -= 4)
        out += digits[(unit >> shift) & 15];
    out += u'}';
}

// XML does not allow these characters as entities either.
bool is_xml_character(std::uint32_t code) {
    if (code >= 0x10000) return code <= 0x10FFFF;
    const auto unit = static_cast<char16_t>(code);
    return xml_holds(unit) && !is_high_half(unit) && !is_low_half(unit);
}

// Decodes the entity at the front of `text`, which begins with "&". Returns its length, or 0 if it is
// unknown.
std::size_t append_reference(wide_string& out, wide_view text) {
    static constexpr std::pair<wide_view, char16_t> names[] = {
        {u"&amp;", u'&'}, {u"&lt;", u'<'}, {u"&gt;", u'>'}, {u"&quot;", u'"'}, {u"&apos;", u'\''}};
    for (const auto& [name, sign] : names) {
        if (!text.starts_with(name)) continue;
        out += sign;
        return name.size();
    }
    if (!text.starts_with(u"&#")) return 0;
    const std::size_t digits = text.starts_with(u"&#x") ? 3 : 2;
    const auto number = number_until(text.substr(digits), u';', digits == 3 ? 16 : 10);
    if (!number || !is_xml_character(number->first)) return 0;
    append_code_point(out, number->first);
    return digits + number->second;
}

std::optional<wide_string> without_references(wide_view text) {
    wide_string out;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find(u'&'), text.size());
        out += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const std::size_t length = append_reference(out, text);
        if (length == 0) return std::nullopt;
        text.remove_prefix(length);
    }
    return out;
}

wide_string without_escapes(wide_view text) {
    wide_string out;
    while (!text.empty()) {
        const std::size_t plain = std::min(text.find(escape_begin), text.size());
        out += text.substr(0, plain);
        text.remove_prefix(plain);
        if (text.empty()) break;
        const auto escape = escape_at(text);
        // A backslash that begins no escape stays, and the text after it is looked at again.
        out += escape ? static_cast<char16_t>(escape->first) : text.front();
        text.remove_prefix(escape ? escape->second : 1);
    }
    return out;
}

bool needs_escape(wide_view text, std::size_t place) {
    const char16_t c = text[place];
    // Only a backslash that would be read as an escape; paths are full of others.
    if (c == u'\\') return escape_at(text.substr(place)).has_value();
    if (is_high_half(c)) return place + 1 == text.size() || !is_low_half(text[place + 1]);
    if (is_low_half(c)) return place == 0 || !is_high_half(text[place - 1]);
    return !xml_holds(c);
}

} // namespace

std::string xml_value(wide_view text) {
    wide_string escaped;
    escaped.reserve(text.size());
    for (std::size_t place = 0; place < text.size(); ++place) {
        if (needs_escape(text, place))
            append_escape(escaped, text[place]);
        else
            escaped += text[place];
    }
    return to_utf8(escaped);
}

std::optional<wide_string> text_of_xml(std::string_view value) {
    std::optional<wide_string> text = from_utf8(value);
    // Entities first: an escape can be written with them, but not the other way round.
    if (text->find(u'&') != wide_string::npos) text = without_references(*text);
    if (text && text->find(escape_begin) != wide_string::npos) text = without_escapes(*text);
    return text;
}

wide_string widened(std::string_view narrow) {
    wide_string text;
    for (const char c : narrow) text += static_cast<char16_t>(static_cast<unsigned char>(c));
    return text;
}

std::optional<std::string> narrowed(wide_view text) {
    std::string narrow;
    for (const char16_t c : text) {
        if (c > 255) return std::nullopt;
        narrow += static_cast<char>(c);
    }
    return narrow;
}

} // namespace vestra::files
