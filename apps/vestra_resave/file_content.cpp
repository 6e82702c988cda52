// Reads files for digests, texts and comparisons.
#include "apps/vestra_resave/file_content.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace vestra::command {

using namespace vs::project_resave;

namespace {

constexpr size_t piece = 256 * 1024;
constexpr uint64_t largest_text = uint64_t{256} << 20;

platform::outcome open_to_read(const wide_string& path, std::unique_ptr<platform::file>& file) {
    return platform::current_system().open(path, platform::access::read, platform::disposition::open_existing,
                                           file);
}

} // namespace

std::string hexadecimal(const unsigned char* bytes, size_t length) {
    constexpr char digits[] = "0123456789abcdef";
    std::string text;
    for (size_t index = 0; index < length; ++index) {
        text += digits[bytes[index] >> 4U];
        text += digits[bytes[index] & 0xFU];
    }
    return text;
}

platform::outcome read_digest(const wide_string& path, const std::function<bool()>& is_stopped,
                              file_digest& digest) {
    std::unique_ptr<platform::file> file;
    platform::outcome result = open_to_read(path, file);
    std::vector<char> buffer(piece);
    sha256 sum;
    digest = {};
    for (size_t count = buffer.size(); result && count == buffer.size() && !is_stopped();) {
        result = file->read(buffer.data(), buffer.size(), count);
        sum.add(buffer.data(), count);
        platform::note_transfer(count);
        digest.bytes += count;
    }
    // Also after a stop, where it is the digest of a part; callers know that they stopped.
    digest.sha256 = sum.text();
    if (result && digest.sha256.empty())
        result = platform::outcome::because(u"its SHA-256 cannot be computed");
    return result;
}

platform::outcome read_text(const wide_string& path, std::string& text) {
    std::unique_ptr<platform::file> file;
    const platform::outcome opened = open_to_read(path, file);
    if (!opened) return opened;
    const uint64_t bytes = file->size();
    if (bytes > largest_text) return platform::outcome::because(u"it is larger than 256 MiB");
    text.resize(static_cast<size_t>(bytes));
    return file->read_whole(text.data(), text.size());
}

bool is_beginning_of(platform::system& disk, const wide_string& path, const wide_string& source) {
    std::unique_ptr<platform::file> half, whole;
    using platform::access;
    using platform::disposition;
    if (!disk.open(path, access::read, disposition::open_existing, half)) return false;
    // Before the source is opened, which may no longer exist.
    if (half->size() == 0) return true;
    if (!disk.open(source, access::read, disposition::open_existing, whole) || half->size() > whole->size())
        return false;
    std::vector<char> first(piece), second(piece);
    // Once the files differ, the rest must be zeros: space that was reserved before it was written. A file
    // that is complete never gets there.
    bool is_at_zeros = false;
    for (uint64_t rest = half->size(); rest != 0;) {
        const auto length = static_cast<size_t>(std::min<uint64_t>(rest, piece));
        if (!half->read_whole(first.data(), length) || !whole->read_whole(second.data(), length))
            return false;
        const char* const end = first.data() + length;
        const char* differs = first.data();
        if (!is_at_zeros) differs = std::mismatch(differs, end, std::as_const(second).data()).first;
        is_at_zeros = differs != end;
        if (std::any_of(differs, end, [](char each) { return each != 0; })) return false;
        rest -= length;
    }
    return true;
}

bool is_same_text(platform::system& disk, const wide_string& a, const wide_string& b) {
    const platform::entry_status one = disk.status_of(a), other = disk.status_of(b);
    // Both directions, because one of them accepts zeros at the end in place of content.
    return one.kind == platform::entry_kind::file && other.kind == platform::entry_kind::file &&
           one.bytes == other.bytes && is_beginning_of(disk, a, b) && is_beginning_of(disk, b, a);
}

} // namespace vestra::command
