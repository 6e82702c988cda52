#include "platform/posix/byte_page.h"

#include <iconv.h>

#include <map>
#include <mutex>
#include <optional>
#include <string>

namespace vs::project_resave::platform {

namespace {

constexpr char16_t replacement = 0xFFFD;

std::optional<byte_page> make_page(unsigned code_page) {
    const std::string name = code_page == 20127 ? "US-ASCII" : "CP" + std::to_string(code_page);
    const iconv_t converter = ::iconv_open("UTF-16LE", name.c_str());
    if (converter == reinterpret_cast<iconv_t>(-1)) return std::nullopt; // NOLINT: how iconv tells failure
    byte_page page;
    for (unsigned value = 0; value < page.wide.size(); ++value) {
        char byte = static_cast<char>(value);
        std::array<unsigned char, 8> out{};
        char* in_at = &byte;
        char* out_at = reinterpret_cast<char*>(out.data());
        size_t in_left = 1;
        size_t out_left = out.size();
        const bool converted = ::iconv(converter, &in_at, &in_left, &out_at, &out_left) != size_t(-1);
        ::iconv(converter, nullptr, nullptr, &out_at, &out_left); // a page may hold back a base letter
        const bool is_control = value >= 0x80 && value < 0xA0 && code_page != 20127;
        const char16_t unassigned = is_control ? static_cast<char16_t>(value) : replacement;
        page.wide[value] = converted ? static_cast<char16_t>(out[0] | (out[1] << 8)) : unassigned;
        if (page.wide[value] != replacement) page.bytes.emplace(page.wide[value], byte);
    }
    ::iconv_close(converter);
    return page;
}

} // namespace

const byte_page* find_byte_page(unsigned code_page) {
    const bool is_known = (code_page >= 1250 && code_page <= 1258) || code_page == 866 || code_page == 20127;
    if (!is_known) return nullptr;
    static std::mutex mutex;
    static std::map<unsigned, std::optional<byte_page>> pages;
    const std::lock_guard guard(mutex);
    const auto [page, is_new] = pages.try_emplace(code_page);
    if (is_new) page->second = make_page(code_page);
    return page->second ? &*page->second : nullptr;
}

} // namespace vs::project_resave::platform
