// The template, style and script of the page in UTF-8. They are compiled in from page.html, page.css and
// page.js by cmake/embedded_texts.cmake.
#pragma once

#include <string_view>

namespace vestra::command {

extern const std::string_view page_template; // page.html; {{name}} marks a fragment
extern const std::string_view page_style;    // page.css
extern const std::string_view page_script;   // page.js

} // namespace vestra::command
