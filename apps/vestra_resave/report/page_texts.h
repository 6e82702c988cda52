// The template, style and script of the page, which are compiled in.
#pragma once

#include <string_view>

namespace vestra::command {

extern const std::string_view page_template; // page.html; {{name}} marks a fragment
extern const std::string_view page_style;    // page.css
extern const std::string_view page_script;   // page.js

} // namespace vestra::command
