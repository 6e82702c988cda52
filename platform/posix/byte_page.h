// The code pages of one byte to a character.
#pragma once

#include <array>
#include <unordered_map>

namespace vs::project_resave::platform {

struct byte_page {
    std::array<char16_t, 256> wide{};         ///< the character of each byte
    std::unordered_map<char16_t, char> bytes; ///< the byte of each character that the page has
};

/// Pages 1250 to 1258, 866 and 20127; null for any other one. Lives until the process ends. May be called
/// from any thread.
const byte_page* find_byte_page(unsigned code_page);

} // namespace vs::project_resave::platform
