// Figures and names as a person reads them.
#pragma once

#include <cstdint>
#include <string>

#include "platform/wide_string.h"

namespace vestra::command {

// "0 B", "512 B", "1.5 KB", "12.3 MB", in steps of 1024.
std::string size_text(uint64_t bytes);

// The text in UTF-8, on one line and without signs that steer a terminal.
std::string one_line(vs::project_resave::wide_view text);

} // namespace vestra::command
