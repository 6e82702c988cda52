#include "logs/file_stream.h"

#include <algorithm>

namespace vs::project_resave {

namespace {

constexpr int open_tries = 20;
constexpr size_t longest_piece = 0x40000000;

} // namespace

bool file_stream::open(const wide_string& path, wide_view mode) {
    close();
    platform::system& files = platform::current_system();
    const bool appends = mode.find(u'a') != wide_view::npos;
    const bool creates = mode.find(u'w') != wide_view::npos;
    const bool writes = appends || creates || mode.find(u'+') != wide_view::npos;
    const auto wanted = writes ? platform::access::read_write : platform::access::read;
    const auto how = creates ? platform::disposition::create_always : platform::disposition::open_existing;
    for (int i = 0; i < open_tries; ++i) {
        const platform::outcome result = files.open(path, wanted, how, handle);
        if (result) {
            if (appends) {
                eof_seen = false;
                handle->seek_end();
            }
            return true;
        }
        if (!result.is(platform::failure::in_use)) return false;
        files.pause_1ms();
    }
    return false;
}

bool file_stream::write(wide_view text) {
    if (!handle) return false;
    const std::string bytes = to_narrow(text, encoding);
    for (size_t written = 0; written < bytes.size();) {
        const size_t piece = std::min(bytes.size() - written, longest_piece);
        if (!handle->write(bytes.data() + written, piece)) return false;
        written += piece;
    }
    return true;
}

bool file_stream::write_line(wide_view text) { return write(text) && write(line_end); }

void file_stream::close() { handle.reset(); }

bool append_text(const wide_string& file_name, const wide_string& text, bool end_line) {
    file_stream stream;
    if (!stream.open(file_name, u"a")) return false;
    const wide_view shown(text.c_str());
    return end_line ? stream.write_line(shown) : stream.write(shown);
}

} // namespace vs::project_resave
