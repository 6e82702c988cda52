// What a file holds: its text, and the digest by which one file is known to be as another.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>

#include "platform/system.h"
#include "platform/wide_string.h"

namespace vestra::command {

// SHA-256 of bytes that come piece by piece; the operating system or its library computes it.
class sha256 {
public:
    sha256();
    ~sha256();
    sha256(const sha256&) = delete;
    sha256& operator=(const sha256&) = delete;

    void add(const void* bytes, size_t length);
    // Returns the digest as 64 small hexadecimal digits; called once, last. Empty if it could not be
    // computed.
    std::string text();

private:
    struct state;
    std::unique_ptr<state> state_;
};

std::string hexadecimal(const unsigned char* bytes, size_t length);

struct file_digest {
    uint64_t bytes = 0;
    std::string sha256;
};
// Reads a file to its end, or until `is_stopped` returns true, which is asked now and then: then `digest` is
// of no use.
vs::project_resave::platform::outcome read_digest(const vs::project_resave::wide_string& path,
                                                  const std::function<bool()>& is_stopped,
                                                  file_digest& digest);
// Sets `text` to all that a file of at most 256 MiB holds.
vs::project_resave::platform::outcome read_text(const vs::project_resave::wide_string& path,
                                                std::string& text);

// True if the file at `path` holds what the one at `source` begins with, and then nothing but zeros, as a
// copy does that broke off. False for what cannot be read.
bool is_beginning_of(vs::project_resave::platform::system& disk, const vs::project_resave::wide_string& path,
                     const vs::project_resave::wide_string& source);
// True if both files have the same bytes.
bool is_same_text(vs::project_resave::platform::system& disk, const vs::project_resave::wide_string& a,
                  const vs::project_resave::wide_string& b);

} // namespace vestra::command
