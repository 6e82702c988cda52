// An archive as a row of entries, written or read from its beginning to its end. Only posix/archive_file.cpp
// needs the library of archive formats: a target that lacks it builds another body, which has no formats.
//
// Names of entries are UTF-8 and have "/" between folders, whatever the user's locale is.
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
    enum class type { file, folder, other }; // a link or a device is another

    std::string name;
    type kind = type::file;
    uint64_t bytes = 0;   // of a file
    int64_t modified = 0; // nanoseconds since 1970, 0 where it is unknown; a zip keeps whole seconds
};

// Each call returns the first failure of the file below, or what the library has against the entry. After a
// failure nothing else may be called.
class archive_writer {
public:
    // `to` is empty and outlives the writer. Null if there are no archives.
    static std::unique_ptr<archive_writer> begin(archive_format format, platform::file& to);
    virtual ~archive_writer() = default;

    // Begins an entry, which ends the one before it. Exactly `bytes` of it are to follow.
    virtual platform::outcome add(const packed_entry& entry) = 0;
    virtual platform::outcome write(const void* bytes, size_t length) = 0;
    // Ends the archive; called once, last. The file is neither flushed nor closed.
    virtual platform::outcome finish() = 0;
};

class archive_reader {
public:
    // Opens an archive by its drive path. Null, with `reason` set, if it cannot be opened or is of no format
    // above.
    static std::unique_ptr<archive_reader> open(const wide_string& path, wide_string& reason);
    virtual ~archive_reader() = default;

    enum class step { entry, end, damaged };
    // Goes on to the next entry; what is left of the one before is passed over. After `damaged` nothing else
    // may be called but `reason`.
    virtual step next(packed_entry& entry) = 0;
    // Reads up to `length` bytes of the entry; `count` is less only at its end. Returns false if it is
    // damaged or encrypted.
    virtual bool read(void* buffer, size_t length, size_t& count) = 0;
    // How much of the archive has been read, in its own bytes.
    virtual uint64_t bytes_taken() = 0;
    // What the last failure was, in the library's words.
    virtual wide_string reason() = 0;
};

} // namespace vestra::command
