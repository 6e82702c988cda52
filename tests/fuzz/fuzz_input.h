// Helpers of all fuzz programs.
#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "platform/text.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size);

namespace vs::project_resave {

// Aborts the program with the name of the violated law.
inline void hold(bool law, const char* name) {
    if (law) return;
    std::fprintf(stderr, "does not hold: %s\n", name);
    std::abort();
}

inline std::string_view bytes_of(const std::uint8_t* bytes, std::size_t size) {
    return {reinterpret_cast<const char*>(bytes), size};
}

// Maps each byte below 128 to itself, and every other one to a letter with letter case outside ASCII, or to a
// lone surrogate.
inline wide_string wide_of(std::string_view bytes) {
    static constexpr wide_view others =
        u"\u0416\u0436\u0130\u0131\u00DF\u01C4\u03A3\u03C3\u03C2\xD801\xDC01\u2126\u212A";
    wide_string text;
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        text += byte < 128 ? static_cast<char16_t>(byte) : others[byte % others.size()];
    }
    return text;
}

} // namespace vs::project_resave
