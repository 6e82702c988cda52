// An archive as a sequence of entries, written or read from beginning to end. Only posix/archive_file.cpp
// needs the library for archive formats. A target without it builds another implementation, which supports no
// format.
//
// Names of entries are UTF-8 with "/" as separator, independent of the user's locale.
#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "platform/system.h"
#include "platform/wide_string.h"

namespace vestra::command {

using vs::project_resave::wide_string;
namespace platform = vs::project_resave::platform;

enum class archive_format { zip, tar_zst };

// True if this program can write and read archives.
bool has_archives();

// A file or folder in an archive.
struct packed_entry {
    enum class type { file, folder, other }; // `other` is a link or a device

    std::string name;
    type kind = type::file;
    uint64_t bytes = 0;   // of a file
    int64_t modified = 0; // nanoseconds since 1970, 0 if unknown; a zip stores whole seconds
    bool is_encrypted = false;
};

// Each call returns the first failure to write the file, or the library's reason for rejecting the entry.
// After a failure call nothing else.
class archive_writer {
public:
    // `to` must be empty and outlive the writer. Returns null if this program has no archive formats.
    static std::unique_ptr<archive_writer> begin(archive_format format, platform::file& to);
    virtual ~archive_writer() = default;

    // Ends the previous entry and begins a new one, for which exactly `entry.bytes` bytes must be written.
    virtual platform::outcome add(const packed_entry& entry) = 0;
    virtual platform::outcome write(const void* bytes, size_t length) = 0;
    // Ends the archive. Call it once, at the end. The file is neither flushed nor closed.
    virtual platform::outcome finish() = 0;
};

class archive_reader {
public:
    // Opens an archive by its drive path. Returns null and sets `reason` if it cannot be opened or has
    // another format than those above.
    static std::unique_ptr<archive_reader> open(const wide_string& path, wide_string& reason);
    virtual ~archive_reader() = default;

    enum class step { entry, end, damaged };
    // Moves to the next entry and skips the rest of the previous one. After `damaged` call only `reason`.
    virtual step next(packed_entry& entry) = 0;
    // Reads up to `length` bytes of the entry. `count` is less than `length` only at the end of the entry.
    // Returns false if the entry is damaged or encrypted.
    virtual bool read(void* buffer, size_t length, size_t& count) = 0;
    // True if the archive is a zip; known once `next` has returned an entry.
    virtual bool is_zip() = 0;
    // Returns the number of bytes of the archive file that have been read.
    virtual uint64_t bytes_taken() = 0;
    // Returns the library's text for the last failure.
    virtual wide_string reason() = 0;
};

} // namespace vestra::command
