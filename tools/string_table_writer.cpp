// Writes a string table for the resource compiler: string_table_writer LIST FILE, where LIST is "bundle" or
// "host". Characters are written as numbers, because resource compilers differ in the encoding they expect.
#include <cstdint>
#include <fstream>
#include <iomanip>
#include <span>
#include <string_view>

namespace {

constexpr uint32_t english = 50000;

struct text_row {
    uint32_t id;
    std::u16string_view text;
};

// NOLINTBEGIN(bugprone-macro-parentheses): a list of rows is not an expression
#define VS_TEXT(id, name, base, translated) text_row{id, base}, text_row{id + english, translated},
#define VS_TEXT_BASE_ONLY(id, name, base) text_row{id, base},
// NOLINTEND(bugprone-macro-parentheses)
constexpr text_row bundle_rows[] = {
#include "framework/resources/texts/bundle_texts.inc"
#include "framework/resources/texts/toolkit_texts.inc"
};
constexpr text_row host_rows[] = {
#include "reference_host/shell/host_texts.inc"
};
#undef VS_TEXT
#undef VS_TEXT_BASE_ONLY

void write(std::ofstream& out, std::span<const text_row> rows) {
    // Language-neutral for the operating system: a row's language is in its number.
    out << "LANGUAGE 0, 0\nSTRINGTABLE\nBEGIN\n" << std::hex << std::setfill('0');
    for (const text_row& row : rows) {
        out << "    " << std::dec << row.id << std::hex << " L\"";
        for (const char16_t c : row.text) out << "\\x" << std::setw(4) << static_cast<unsigned>(c);
        out << "\"\n";
    }
    out << "END\n";
}

} // namespace

int main(int argc, char** argv) {
    if (argc != 3) return 2;
    std::ofstream out(argv[2]);
    if (std::string_view(argv[1]) == "bundle")
        write(out, bundle_rows);
    else
        write(out, host_rows);
    return out.flush() ? 0 : 1;
}
