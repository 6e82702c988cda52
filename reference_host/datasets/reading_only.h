// Keeps the library of geodata formats from changing anything on the disk: to open a data set is only to read
// it.
#pragma once

namespace vestra::datasets {

// As long as an object lives, GDAL, and SQLite below it, can read files but not create, write, rename or
// remove any; a driver that insists fails. What they say about failures is not printed. Logs next to a
// database
// (-wal, -journal) are left unread, so it is read as of the last time that they were merged into it. The
// objects nest. User-interface thread only.
class reading_only {
public:
    reading_only();
    ~reading_only();
    reading_only(const reading_only&) = delete;
    reading_only& operator=(const reading_only&) = delete;
};

} // namespace vestra::datasets
