#include "apps/vestra_resave/file_content.h"

#include <vector>

#include "platform/system.h"

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

} // namespace vestra::command
