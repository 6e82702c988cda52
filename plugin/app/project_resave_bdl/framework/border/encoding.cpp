// The rows keep their numbers, which others know. Those with code page 0 are only names: nothing is converted
// through them. SYSTEM is the exception, since 0 is the number of the active code page.
#include "framework/border/encoding.h"

#include "platform/text.h"

namespace vs::project_resave {

namespace {

constexpr encoding_row rows[encoding_count] = {
    {"UTF-8", 65001}, {"UTF-16", 0},    {"UTF-16LE", 0},  {"UTF-16BE", 0},  {"UTF-32", 0},
    {"UTF-32LE", 0},  {"UTF-32BE", 0},  {"CP1250", 1250}, {"CP1251", 1251}, {"CP1252", 1252},
    {"CP1253", 1253}, {"CP1254", 1254}, {"CP1255", 1255}, {"CP1256", 1256}, {"CP1257", 1257},
    {"CP1258", 1258}, {"CP866", 866},   {"ASCII", 20127}, {"SYSTEM", 0}};

bool converts(uint32_t row) {
    return row < encoding_count && (rows[row].code_page != 0 || row == system_row);
}

} // namespace

const encoding_row& encoding(uint32_t row) { return rows[row < encoding_count ? row : system_row]; }

std::string to_narrow(wide_view text, uint32_t row) {
    return converts(row) ? platform::to_bytes(text, rows[row].code_page) : std::string();
}

wide_string to_wide(std::string_view bytes, uint32_t row) {
    return converts(row) ? platform::from_bytes(bytes, rows[row].code_page) : wide_string();
}

wide_string host_text(const char* text) { return text ? to_wide(text, system_row) : wide_string(); }

} // namespace vs::project_resave
