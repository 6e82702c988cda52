// Writes text files without a buffer: a line is in the file when the call returns, even if the program is
// killed later.

#include "logs/txt_file.h"

#include <algorithm>

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"

namespace vs::project_resave {

namespace {

constexpr uint32_t open_tries = 20;
constexpr size_t longest_piece = 0x40000000;

} // namespace

platform::outcome file_stream::open(const wide_string& path, wide_view mode) {
    close();
    platform::system& files = platform::current_system();
    const bool appends = mode.find(u'a') != wide_view::npos;
    const bool creates = mode.find(u'w') != wide_view::npos;
    const bool writes = appends || creates || mode.find(u'+') != wide_view::npos;
    const auto wanted = writes ? platform::access::read_write : platform::access::read;
    const auto how = creates ? platform::disposition::create_always : platform::disposition::open_existing;
    platform::outcome opened;
    // Virus scanners and indexers open new files for a moment.
    for (uint32_t i = 0; i < open_tries; ++i) {
        opened = files.open(path, wanted, how, handle_);
        if (opened && appends) {
            eof_seen_ = false;
            return handle_->seek_end();
        }
        if (!opened.is(platform::failure::in_use)) break;
        files.pause_1ms();
    }
    return opened;
}

platform::outcome file_stream::write(wide_view text) {
    if (!handle_) return platform::failure::missing;
    const std::string bytes = to_narrow(text, encoding_);
    for (size_t written = 0; written < bytes.size();) {
        const size_t piece = std::min(bytes.size() - written, longest_piece);
        if (const platform::outcome went = handle_->write(bytes.data() + written, piece); !went) return went;
        written += piece;
    }
    return {};
}

platform::outcome file_stream::write_line(wide_view text) {
    const platform::outcome written = write(text);
    return written ? write(line_end_) : written;
}

platform::outcome file_stream::close() {
    const std::unique_ptr<platform::file> closing = std::move(handle_);
    return closing ? closing->close() : platform::outcome();
}

platform::outcome append_text(const wide_string& file_name, const wide_string& text, bool end_line) {
    file_stream stream;
    const platform::outcome opened = stream.open(file_name, u"a");
    if (!opened) return opened;
    // Kept as users know it: a text with an embedded zero is cut there.
    const wide_view shown(text.c_str());
    const platform::outcome written = end_line ? stream.write_line(shown) : stream.write(shown);
    const platform::outcome closed = stream.close();
    return written ? closed : written;
}

bool txt_file::open(const wide_string& name) {
    file_name = name;
    // Kept as users know it: the file is created only under an empty name, so an existing name is never
    // emptied.
    if (!file_name.empty()) return false;
    file_stream().open(file_name, u"w");
    return true;
}

void txt_file::close() { file_name.clear(); }

bool txt_file::write(int32_t row, bool end_line) { return write(load_string(row), end_line); }

bool txt_file::write(const char* text, bool end_line) { return write(host_text(text), end_line); }

bool txt_file::write(const wide_string& text, bool end_line) {
    append_text(file_name, text, end_line);
    return true;
}

void project_struct_writer::indent() { ++depth; }

void project_struct_writer::unindent() {
    if (depth > 0) --depth;
}

void project_struct_writer::write_line(int32_t row) { write_line(load_string(row), depth); }

void project_struct_writer::write_line(const wide_string& text, uint32_t at_depth) {
    write(wide_string(size_t{indent_width} * at_depth, u' ') + text, true);
}

} // namespace vs::project_resave
