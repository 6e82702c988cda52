// Keeps the geodata library from writing to the disk, so that opening a data set only reads it.
#pragma once

namespace vestra::datasets {

// While an object of this class exists, GDAL and SQLite can read files but not create, write, rename or
// remove them; a driver that insists on writing fails. Their error messages are suppressed. Logs next to a
// database (-wal, -journal) are not read, so its content is that of the last merge. Objects can be nested.
// User-interface thread only.
class reading_only {
public:
    reading_only();
    ~reading_only();
    reading_only(const reading_only&) = delete;
    reading_only& operator=(const reading_only&) = delete;
};

} // namespace vestra::datasets
