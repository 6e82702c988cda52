#include "apps/vestra_resave/figures.h"

#include <array>
#include <cstdio>

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

} // namespace vestra::command
