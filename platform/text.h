// Letter case, code pages and UTF-8. Nothing here depends on the process's locale. All functions may be
// called from any thread; none fails on broken UTF-16 or broken UTF-8.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

// Less than, equal to or greater than 0 as `a` comes before, with or after `b` when letter case is ignored,
// character by character and in every script that has case. What a dictionary takes for one word (strasse
// and its form with a sharp s) stays two, as it can be two files.
int compare_no_case(wide_view a, wide_view b);

// Turns every character to lower case; the length stays.
void lower_in_place(wide_string& text);

// The key of `text` for look-up without letter case: two texts have equal keys exactly if
// `compare_no_case` finds them equal.
wide_string folded(wide_view text);

// Code pages known everywhere: 65001 (UTF-8), 1250 to 1258, 866, 20127 (ASCII) and 0, the active one of the
// system (UTF-8 on POSIX).
inline constexpr unsigned code_page_utf8 = 65001;
inline constexpr unsigned code_page_active = 0;

// Returns the text in the code page. A character that the page lacks becomes "?", on Windows one that looks
// like it if there is any. Empty for an unknown code page.
std::string to_bytes(wide_view text, unsigned code_page);

// Returns the text that the bytes mean in the code page. Bytes that mean nothing there become U+FFFD, or
// stay C1 controls in the single-byte pages. Empty for an unknown code page.
wide_string from_bytes(std::string_view bytes, unsigned code_page);

// The same for UTF-8, alike on every target. Half a surrogate pair becomes U+FFFD, and so does each broken
// character: what is right at its beginning, or else one byte.
std::string to_utf8(wide_view text);
wide_string from_utf8(std::string_view bytes);

// Returns the length of the part in front of the first broken character; all of it if none is broken.
size_t valid_utf8_length(std::string_view bytes);
// Appends a character, as a surrogate pair where it needs one.
void append_code_point(wide_string& text, char32_t c);
// True for the first and the second half of a surrogate pair.
inline bool is_high_half(char16_t c) { return c >= 0xD800 && c < 0xDC00; }
inline bool is_low_half(char16_t c) { return c >= 0xDC00 && c < 0xE000; }

} // namespace vs::project_resave::platform
