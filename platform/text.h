// Text calls of the operating system: letter case and code pages. Nothing here depends on the process's
// locale. All functions may be called from any thread; none fails on broken UTF-16 or broken UTF-8.
#pragma once

#include <string>
#include <string_view>

#include "platform/wide_string.h"

namespace vs::project_resave::platform {

/// Below, equal to or above 0 as `a` stands before, at or behind `b` when letter case is ignored, character
/// by character and in every script that has case. What a dictionary takes for one word (strasse and its form
/// with a sharp s) stays two, as it can be two files.
int compare_no_case(wide_view a, wide_view b);

/// Turns every character to lower case; the length stays.
void lower_in_place(wide_string& text);

/// The key of `text` for look-up without letter case: two texts have equal keys exactly if
/// `compare_no_case` finds them equal.
wide_string folded(wide_view text);

/// Code pages known everywhere: 65001 (UTF-8), 1250 to 1258, 866, 20127 (ASCII) and 0, the active one of the
/// system (UTF-8 on POSIX).
inline constexpr unsigned code_page_utf8 = 65001;
inline constexpr unsigned code_page_active = 0;

/// The text in the code page. A character that the page lacks becomes "?", on Windows one that looks like it
/// if there is any; half a surrogate pair in UTF-8
/// U+FFFD; the rest is kept. Empty for an unknown code page.
std::string to_bytes(wide_view text, unsigned code_page);

/// The text that the bytes mean in the code page. Bytes that mean nothing there become U+FFFD, or stay C1
/// controls in the single-byte pages. Empty for an unknown code page.
wide_string from_bytes(std::string_view bytes, unsigned code_page);

inline std::string to_utf8(wide_view text) { return to_bytes(text, code_page_utf8); }
inline wide_string from_utf8(std::string_view bytes) { return from_bytes(bytes, code_page_utf8); }

} // namespace vs::project_resave::platform
