#include "apps/vestra_resave/archive/zip_directory.h"

#include <algorithm>
#include <cstdint>
#include <filesystem>
#include <fstream>
#include <optional>
#include <string>

#include "platform/volumes.h"

namespace vestra::command {

namespace {

constexpr size_t end_bytes = 22, end64_bytes = 56, locator_bytes = 20, most_of_comment = 65'535;
constexpr size_t record_bytes = 46, header_bytes = 30;
constexpr uint64_t in_extra = 0xFFFF'FFFF; // the number is in the extra field, as it has more than 32 bits

uint64_t number_in(const std::string& bytes, size_t at, size_t length) {
    uint64_t number = 0;
    while (length-- > 0) number = number << 8U | static_cast<unsigned char>(bytes[at + length]);
    return number;
}

// Empty if the file ends before.
std::string read_bytes(std::ifstream& file, size_t length) {
    std::string bytes(length, '\0');
    return file.read(bytes.data(), static_cast<std::streamsize>(length)) ? bytes : std::string();
}

std::string read_at(std::ifstream& file, uint64_t place, size_t length) {
    file.clear();
    file.seekg(static_cast<std::streamoff>(place));
    return file ? read_bytes(file, length) : std::string();
}

struct directory {
    uint64_t place = 0, bytes = 0, entries = 0;
    uint64_t before = 0; // what is before the zip in its file, such as a program that unpacks it
    uint64_t most_entries = 0xFFFF;
};

enum class search { none, found, damaged };

search find(std::ifstream& file, directory& found) {
    file.seekg(0, std::ios::end);
    const auto size = static_cast<uint64_t>(file.tellg());
    const size_t length = static_cast<size_t>(std::min<uint64_t>(size, end_bytes + most_of_comment));
    const std::string last = read_at(file, size - length, length);
    const size_t at = last.rfind("PK\5\6");
    if (at == std::string::npos || at + end_bytes > last.size()) return search::none;
    uint64_t end = size - length + at, offset = number_in(last, at + 16, 4);
    found.bytes = number_in(last, at + 12, 4), found.entries = number_in(last, at + 10, 2);
    const std::string locator = end < locator_bytes ? "" : read_at(file, end - locator_bytes, locator_bytes);
    if (locator.starts_with("PK\6\7")) {
        const std::string end64 = read_at(file, end = number_in(locator, 8, 8), end64_bytes);
        if (!end64.starts_with("PK\6\6")) return search::damaged;
        found.entries = number_in(end64, 32, 8), found.most_entries = UINT64_MAX;
        found.bytes = number_in(end64, 40, 8), offset = number_in(end64, 48, 8);
    }
    if (found.bytes > end || offset > end - found.bytes) return search::damaged;
    found.place = end - found.bytes, found.before = found.place - offset;
    return search::found;
}

// Returns where the entry of a record is; with more than 32 bits that follows the sizes that have as many.
std::optional<uint64_t> offset_in(const std::string& record, const std::string& extra) {
    const uint64_t offset = number_in(record, 42, 4);
    if (offset != in_extra) return offset;
    for (size_t at = 0; at + 4 <= extra.size(); at += 4 + number_in(extra, at + 2, 2)) {
        if (number_in(extra, at, 2) != 1) continue;
        size_t place = at + 4;
        for (const size_t size : {24, 20})
            if (number_in(record, size, 4) == in_extra) place += 8;
        if (place + 8 <= extra.size()) return number_in(extra, place, 8);
    }
    return std::nullopt;
}

bool is_same(const std::string& record, const std::string& header, const std::string& name) {
    if (header.size() < header_bytes) return false;
    constexpr uint64_t sums_follow = 8, is_utf8 = 0x800;
    const uint64_t flags = number_in(record, 8, 2), own_flags = number_in(header, 6, 2);
    const bool is_ascii =
        std::ranges::all_of(name, [](char letter) { return static_cast<unsigned char>(letter) < 0x80; });
    return header.starts_with("PK\3\4") && number_in(header, 26, 2) == name.size() &&
           header.compare(header_bytes, name.size(), name) == 0 &&
           number_in(record, 10, 2) == number_in(header, 8, 2) &&
           (is_ascii || ((flags ^ own_flags) & is_utf8) == 0) &&
           ((own_flags & sums_follow) != 0 || number_in(record, 16, 4) == number_in(header, 14, 4));
}

} // namespace

bool has_true_directory(const vs::project_resave::wide_string& path) {
    const std::filesystem::path native = vs::project_resave::platform::native_path(path);
    std::ifstream file(native, std::ios::binary), entries(native, std::ios::binary);
    directory found;
    const search ended = find(file, found);
    if (ended != search::found) return ended == search::none;
    file.clear();
    file.seekg(static_cast<std::streamoff>(found.place));
    uint64_t done = 0, count = 0;
    for (; done < found.bytes; ++count) {
        const std::string record = read_bytes(file, record_bytes);
        if (!record.starts_with("PK\1\2")) return false;
        const size_t length = number_in(record, 28, 2), more = number_in(record, 30, 2);
        const std::string name = read_bytes(file, length), extra = read_bytes(file, more);
        file.seekg(static_cast<std::streamoff>(number_in(record, 32, 2)), std::ios::cur);
        const auto offset = offset_in(record, extra);
        if (name.size() != length || extra.size() != more || !offset) return false;
        if (!is_same(record, read_at(entries, found.before + *offset, header_bytes + length), name))
            return false;
        done += record_bytes + length + more + number_in(record, 32, 2);
    }
    return done == found.bytes && (count & found.most_entries) == found.entries;
}

} // namespace vestra::command
