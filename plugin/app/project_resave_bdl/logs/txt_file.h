// Writers of text files.
#pragma once

#include <cstdint>
#include <memory>

#include "framework/border/encoding.h"
#include "platform/system.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Low-level writer of text files.
// Writes through to the file, without a buffer.
class file_stream {
public:
    // "r" reads, "w" creates or empties, "a" appends to a file that exists; "+" asks for both directions. A
    // file that somebody else holds is tried again for about 20 ms. Closes what was open.
    platform::outcome open(const wide_string& path, wide_view mode);
    // Fails if not all of it went out, and always while nothing is open.
    platform::outcome write(wide_view text);
    // The text and a line end.
    platform::outcome write_line(wide_view text);
    platform::outcome close();

private:
    std::unique_ptr<platform::file> handle_; // null when closed
    bool eof_seen_ = false;                  // cleared by an open for appending
    uint32_t encoding_ = utf8_row;
    wide_string line_end_ = u"\r\n";
};

// Opens a file that exists, appends the text up to its first zero character, and closes the file: when it
// returns, the text is in the file or, on failure, is lost in whole or in part.
platform::outcome append_text(const wide_string& file_name, const wide_string& text, bool end_line);

// Plain text file that is open only while it is written to.
// Kept for other bundles; nothing here calls it.
class txt_file {
public:
    virtual ~txt_file() = default;

    // Takes the name. The file is only created under an empty name, and only then is the result true; under
    // any other one writing reaches a file that exists.
    virtual bool open(const wide_string& name);
    virtual void close();
    // The text of this number, a narrow text of the host, a wide text. Always true.
    virtual bool write(int32_t row, bool end_line);
    virtual bool write(const char* text, bool end_line);
    virtual bool write(const wide_string& text, bool end_line);

    wide_string file_name;
};

// Text file of indented lines.
// Kept for other bundles; nothing here calls it.
class project_struct_writer : public txt_file {
public:
    void indent();
    // Stops at the left edge.
    void unindent();
    // The text of this number at the present depth.
    void write_line(int32_t row);
    void write_line(const wide_string& text, uint32_t at_depth);

    uint32_t depth = 0;
    uint32_t indent_width = 4; // blanks for each level
};

} // namespace vs::project_resave
