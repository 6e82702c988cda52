// Figures and names as a person reads them.
#pragma once

#include <cstdint>
#include <string>

#include "reference_host/shell/terminal_front_end.h"

namespace vestra::command {

// "0 B", "512 B", "1.5 KB", "12.3 MB", in steps of 1024.
std::string size_text(uint64_t bytes);

using shell::one_line;

} // namespace vestra::command
