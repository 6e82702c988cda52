// Converts between texts of the model and values of XML attributes. Every UTF-16 text survives: a unit that
// XML cannot hold (a control character, half a surrogate pair, U+FFFE, U+FFFF) is written as \u{1F}, with up
// to four hexadecimal digits, and a text that looks like such an escape has its backslash written as \u{5C}.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "reference_host/model/counted.h"

namespace vestra::files {

// Returns the value in UTF-8. The writer of the XML escapes & < > " and line ends.
std::string xml_value(wide_view text);

// Decodes a value as it is in the file. Returns nothing if it holds an entity that XML does not define, such
// as "&nbsp;" or "&#0;".
std::optional<wide_string> text_of_xml(std::string_view value);

// Returns each byte as a character of 0 to 255, so that text in any code page survives.
wide_string widened(std::string_view narrow);
// The inverse. Returns nothing if a character is above 255.
std::optional<std::string> narrowed(wide_view text);

} // namespace vestra::files
