// The one form of text inside the bundle and at the host's border: UTF-16, the same on every target.
#pragma once

#include <string>
#include <string_view>

namespace vs::project_resave {

using wide_string = std::u16string;
using wide_view = std::u16string_view;

} // namespace vs::project_resave
