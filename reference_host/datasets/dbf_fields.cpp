// Reads the header of a DBF file and the code page in the ".cpg" file next to it.
#include "reference_host/datasets/dbf_fields.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <charconv>
#include <memory>
#include <string_view>

#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"

namespace vestra::datasets {

using namespace vs::project_resave;

namespace {

constexpr std::size_t row_size = 32; // of the file header and of each field descriptor after it
constexpr std::size_t name_size = 11;
constexpr char end_of_fields = '\r';

// Sets `bytes` to the first `count` bytes of a file; to fewer if the file is shorter or cannot be read.
platform::outcome read_start(const wide_string& path, std::size_t count, std::string& bytes) {
    bytes.clear();
    std::unique_ptr<platform::file> file;
    const auto opened = platform::current_system().open(path, platform::access::read,
                                                        platform::disposition::open_existing, file);
    if (!opened) return opened;
    bytes.resize(count);
    std::size_t taken = 0;
    const platform::outcome result = file->read(bytes.data(), count, taken);
    bytes.resize(taken);
    return result;
}

std::size_t byte_at(std::string_view bytes, std::size_t place) {
    return static_cast<unsigned char>(bytes[place]);
}

// Returns the code page from the digits in a name such as "UTF-8", "1251", "CP866" or "ANSI 1251".
unsigned named_code_page(std::string_view name) {
    const auto* const digits =
        std::ranges::find_if(name, [](unsigned char c) { return std::isdigit(c) != 0; });
    unsigned number = platform::code_page_active;
    std::from_chars(digits, name.data() + name.size(), number);
    if (number != 8) return number;
    return name.starts_with("KOI") ? 20866 : platform::code_page_utf8;
}

unsigned code_page_of(const wide_string& path, std::size_t mark) {
    std::string named;
    // The name in the file next to the table comes before the mark in the header.
    if (read_start(path_replace_extension(path, u".cpg"), 32, named) && !named.empty())
        return named_code_page(named);
    switch (mark) {
    case 0x03:
        return 1252;
    case 0x26:
    case 0x65:
        return 866;
    case 0xc9:
        return 1251;
    default:
        return platform::code_page_active;
    }
}

std::string in_system_code_page(std::string_view name, unsigned code_page) {
    const wide_string wide = platform::from_bytes(name, code_page);
    if (wide.empty()) return std::string(name); // the code page is unknown
    return platform::to_bytes(wide, platform::code_page_active);
}

} // namespace

std::optional<std::vector<std::string>> dbf_field_names(const wide_string& path, files::file_error* error) {
    const auto refuse = [&](const platform::outcome& read) {
        if (error) *error = {path, 0, read ? u"the file is not a DBF table" : read.text()};
        return std::nullopt;
    };
    // Read in two steps, because the first row has the size of the header.
    std::string start, header;
    platform::outcome read = read_start(path, row_size, start);
    if (!read || start.size() < row_size) return refuse(read);
    const std::size_t header_size = byte_at(start, 8) | byte_at(start, 9) << 8;
    read = read_start(path, header_size, header);
    if (!read || header.size() <= row_size || header.size() < header_size) return refuse(read);

    // Byte 29 is the mark of the code page in the header.
    const unsigned code_page = code_page_of(path, byte_at(start, 29));
    std::vector<std::string> names;
    std::size_t place = row_size;
    // The header does not say how many fields there are: a mark ends their list.
    for (; place + row_size < header_size && header[place] != end_of_fields; place += row_size) {
        std::string_view name = std::string_view(header).substr(place, name_size);
        name = name.substr(0, name.find('\0'));
        name = name.substr(0, name.find_last_not_of(' ') + 1);
        names.push_back(in_system_code_page(name, code_page));
    }
    // Without the mark the file is something else, or its header is cut off.
    if (header[place] != end_of_fields) return refuse({});
    return names;
}

} // namespace vestra::datasets
