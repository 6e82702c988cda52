// The content of files: texts, SHA-256 digests and comparisons. Functions without a disk use the current one.
// All read in pieces, so memory does not depend on the size of a file, except for `read_text`.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/system.h"
#include "platform/wide_string.h"

namespace vestra::command {

// SHA-256 of data that is added piece by piece, computed by the operating system or its library. A failure of
// the library is remembered, and `text` is empty then.
class sha256 {
public:
    sha256();
    ~sha256();
    sha256(const sha256&) = delete;
    sha256& operator=(const sha256&) = delete;

    // Adds `length` bytes to the digest.
    void add(const void* bytes, size_t length);
    // Returns the digest as 64 lower-case hexadecimal digits, or an empty text if it could not be computed.
    // Call it once, at the end.
    std::string text();

private:
    struct state;
    std::unique_ptr<state> state_;
};

// Returns the bytes as lower-case hexadecimal digits.
std::string hexadecimal(const unsigned char* bytes, size_t length);

// The size of a file and its SHA-256 as hexadecimal digits.
struct file_digest {
    uint64_t bytes = 0;
    std::string sha256;
};
// Reads a file to its end, or until `is_stopped`, which is called for each piece, returns true; `digest` is
// not valid then, although the result is success. Reports the bytes read to the current transfer_watch.
vs::project_resave::platform::outcome read_digest(const vs::project_resave::wide_string& path,
                                                  const std::function<bool()>& is_stopped,
                                                  file_digest& digest);
// Sets `text` to the content of a file of at most 256 MiB; a larger one fails with a reason. `text` is not
// valid after a failure.
vs::project_resave::platform::outcome read_text(const vs::project_resave::wide_string& path,
                                                std::string& text);

// True if the file at `path` consists of the beginning of the file at `source` followed only by zeros, as an
// interrupted copy does. False if either cannot be read.
bool is_beginning_of(vs::project_resave::platform::system& disk, const vs::project_resave::wide_string& path,
                     const vs::project_resave::wide_string& source);
// True if both paths are files with the same bytes. Files of different sizes are not read. False if either
// cannot be read.
bool is_same_text(vs::project_resave::platform::system& disk, const vs::project_resave::wide_string& a,
                  const vs::project_resave::wide_string& b);

} // namespace vestra::command
