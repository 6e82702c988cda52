// Writers of text files.
#pragma once

#include <cstdint>
#include <memory>

#include "framework/border/encoding.h"
#include "platform/system.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// Writes a text file directly, without a buffer.
class file_stream {
public:
    // Opens a file: "r" reads, "w" creates or empties it, "a" appends to an existing file, "+" allows reading
    // and writing. If another program has the file open, retries for about 20 ms. Closes the previous file
    // first.
    platform::outcome open(const wide_string& path, wide_view mode);
    // Writes the text. Fails unless all of it was written, and always while no file is open.
    platform::outcome write(wide_view text);
    // Writes the text and a line end.
    platform::outcome write_line(wide_view text);
    // Closes the file; fails if the operating system could not keep what was written. Does nothing without a
    // file.
    platform::outcome close();

private:
    std::unique_ptr<platform::file> handle_; // null when closed
    bool eof_seen_ = false;                  // cleared by an open for appending
    uint32_t encoding_ = utf8_row;
    wide_string line_end_ = u"\r\n";
};

// Opens an existing file, appends the text up to its first zero character, and closes the file. On success
// the text is in the file; on failure a part of it may be.
platform::outcome append_text(const wide_string& file_name, const wide_string& text, bool end_line);

// A plain text file that is open only while it is written to. Kept for other bundles; nothing here calls it.
class txt_file {
public:
    virtual ~txt_file() = default;

    // Sets the name. Returns true, and creates the file, only for an empty name. With any other name, write()
    // appends to an existing file.
    virtual bool open(const wide_string& name);
    // Clears the name.
    virtual void close();
    // Write the text with this number, a narrow text of the host, a wide text. Always return true.
    virtual bool write(int32_t row, bool end_line);
    virtual bool write(const char* text, bool end_line);
    virtual bool write(const wide_string& text, bool end_line);

    wide_string file_name;
};

// A text file of indented lines. Kept for other bundles; nothing here calls it.
class project_struct_writer : public txt_file {
public:
    void indent();
    // Decreases the depth, but not below 0.
    void unindent();
    // Write the text with this number at the current depth, or a text at `at_depth`.
    void write_line(int32_t row);
    void write_line(const wide_string& text, uint32_t at_depth);

    uint32_t depth = 0;
    uint32_t indent_width = 4; // blanks per level
};

} // namespace vs::project_resave
