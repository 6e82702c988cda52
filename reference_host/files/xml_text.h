// Between the texts of the model and the values of XML attributes. Every UTF-16 text survives: a unit that
// XML cannot hold (a control character, half a surrogate pair, U+FFFE, U+FFFF) is written as \u{1F}, with up
// to four hexadecimal digits; a text that reads like such an escape has its backslash written as \u{5C}.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "reference_host/model/counted.h"

namespace vestra::files {

// The value in UTF-8. The signs & < > " and the line ends are left to the writer of the XML.
std::string xml_value(wide_view text);

// The text of a value as it stands in the file. None if it holds a reference that XML does not know, such as
// "&nbsp;" or "&#0;".
std::optional<wide_string> text_of_xml(std::string_view value);

// Each byte of a narrow text is kept as a character of 0 to 255, so the texts of any code page survive.
wide_string widened(std::string_view narrow);
// None if a character is above 255.
std::optional<std::string> narrowed(wide_view text);

} // namespace vestra::files
