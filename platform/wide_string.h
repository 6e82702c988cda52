// The only form of text inside the bundle and in calls between it and its host: UTF-16 on every target.
#pragma once

#include <string>
#include <string_view>

namespace vs::project_resave {

using wide_string = std::u16string;
using wide_view = std::u16string_view;

} // namespace vs::project_resave
