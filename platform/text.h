// Letter case, code pages and UTF-8. Nothing here depends on the process's locale. All functions may be
// called from any thread; none fails on broken UTF-16 or broken UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Returns a value less than, equal to or greater than 0 if `a` comes before, with or after `b`, ignoring
// letter case. The comparison goes character by character, in every script that has case. Spellings that a
// dictionary treats as one word (strasse and its form with a sharp s) stay different, because they can be two
// files.
int compare_no_case(wide_view a, wide_view b);

// Converts every character to lower case; the length does not change.
void lower_in_place(wide_string& text);

// Returns a key for look-up without letter case: two texts have equal keys exactly if `compare_no_case`
// returns 0 for them.
wide_string folded(wide_view text);

// Code pages supported everywhere: 65001 (UTF-8), 1250 to 1258, 866, 20127 (ASCII) and 0, the active one of
// the operating system (UTF-8 on POSIX).
inline constexpr unsigned code_page_utf8 = 65001;
inline constexpr unsigned code_page_active = 0;

// Returns the text in the code page. A character that the page lacks becomes "?", or on Windows a similar
// character if there is one. Empty for an unknown code page.
std::string to_bytes(wide_view text, unsigned code_page);

// Returns the text that the bytes mean in the code page. Bytes without a meaning become U+FFFD; in the
// single-byte pages those from 0x80 to 0x9F become C1 controls. Empty for an unknown code page.
wide_string from_bytes(std::string_view bytes, unsigned code_page);

// Do the same for UTF-8, identically on every target. Half a surrogate pair becomes U+FFFD. So does a broken
// character: its valid first bytes together, or else one byte.
std::string to_utf8(wide_view text);
wide_string from_utf8(std::string_view bytes);

// Returns the length of the part before the first broken character; the whole length if none is broken.
size_t valid_utf8_length(std::string_view bytes);
// Appends a character, as a surrogate pair if it needs one.
void append_code_point(wide_string& text, char32_t c);
// True for the first and the second half of a surrogate pair.
inline bool is_high_half(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
inline bool is_low_half(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

} // namespace vs::project_resave::platform
