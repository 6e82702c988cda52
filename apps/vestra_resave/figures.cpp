#include "apps/vestra_resave/figures.h"

#include <algorithm>
#include <array>
#include <cstdio>

#include "reference_host/shell/terminal_front_end.h"

namespace vestra::command {

std::string size_text(uint64_t bytes) {
    if (bytes < 1024) return std::to_string(bytes) + " B";
    constexpr std::array<const char*, 5> units{"KB", "MB", "GB", "TB", "PB"};
    double value = static_cast<double>(bytes) / 1024;
    size_t unit = 0;
    for (; value >= 1024 && unit + 1 < units.size(); ++unit) value /= 1024;
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "%.1f %s", value, units[unit]);
    return text.data();
}

std::string one_line(vs::project_resave::wide_view text) {
    std::string line = shell::printable(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return c == '\n' || c == '\t'; }, ' ');
    return line;
}

} // namespace vestra::command
