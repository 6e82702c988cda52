// The operating system as an object. Every file call of the bundle goes through `current_system()`, so a test
// can replace it by a wrapper that fails the n-th copy, fills the disk or counts calls.
//
// Paths have their Windows form (C:\data\a.shp; "/" is a separator too) on every target. Letter case is
// ignored when a name is looked up; the exact spelling is preferred. No function throws. A path that cannot
// be expressed on the target (unknown drive, embedded zero) counts as one that does not exist.
//
// Each call that can fail returns an outcome. A failure carries the first reason: a later failure while
// cleaning up does not replace it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/outcome.h"
#include "platform/wide_string.h"

namespace vs::project_resave::platform {

enum class entry_kind { none, file, folder };
enum class access { read, read_write };
enum class disposition { open_existing, create_always, create_new };

// Identifies what a path leads to, whatever its spelling. Two identities are equal exactly if both paths lead
// to the same file or folder. It is empty (false) if nothing exists under the path.
struct file_identity {
    uint64_t volume = 0;
    uint64_t number = 0;  // number on the volume; 0 if nothing exists
    uint32_t names = 0;   // how many names it has, counted up to 2; 2 also for a link
    bool is_link = false; // the path itself is a link, perhaps a broken one
    bool is_folder = false;

    explicit operator bool() const { return number != 0; }
    bool operator==(const file_identity& other) const {
        return volume == other.volume && number == other.number;
    }
    bool operator<(const file_identity& other) const {
        return volume != other.volume ? volume < other.volume : number < other.number;
    }
};

// What exists under a path.
struct entry_status {
    entry_kind kind = entry_kind::none;
    uint64_t bytes = 0;   // the size of a file, 0 for anything else
    outcome reason = {};  // why the kind is `none`: missing, denied, a device; success for any other kind
    int64_t modified = 0; // when a file was last written, in nanoseconds since 1970 (UTC), as exactly as the
                          // disk keeps it; 0 for anything else
    file_identity identity = {}; // what `identity_of` returns for the path, if the operating system gives it
                                 // in the same answer; else empty
};

// One direct entry of a folder. For a link, `is_folder` describes its target.
struct folder_entry {
    wide_string name;
    bool is_folder = false;
    bool is_link = false;
};

// One entry of a tree of folders, with its full path.
struct tree_entry {
    wide_string path;
    bool is_folder = false;
};

// An open file; closed by the destructor. One thread at a time.
class file {
public:
    virtual ~file() = default;

    // Reads up to `length` bytes from the current position and sets `count` to the number read. That is less
    // than `length` at the end of the file, which is a success, and on failure.
    virtual outcome read(void* buffer, size_t length, size_t& count) = 0;
    // Reads exactly `length` bytes; fails if the file ends before that.
    outcome read_whole(void* buffer, size_t length);
    // Writes all `length` bytes at the current position; on failure some may have been written.
    virtual outcome write(const void* bytes, size_t length) = 0;
    // Moves the position to the end of the file.
    virtual outcome seek_end() = 0;
    // Current size in bytes; 0 on failure.
    virtual uint64_t size() = 0;
    // Writes everything to the disk and waits for it; the default does nothing.
    virtual outcome flush() { return {}; }
    // Closes the file before the destructor does; no other call may follow. Fails if the operating system
    // could not keep what was written; some report that only here.
    virtual outcome close() = 0;
};

// All functions may be called from any thread; see also `system_override`.
class system {
public:
    virtual ~system() = default;

    // Returns what exists under `path`, following links. Returns `none` for a broken link, a device or a
    // pipe, and also for an entry that cannot be reached; then the reason is not `missing`.
    virtual entry_status status_of(const wide_string& path) = 0;
    entry_kind kind_of(const wide_string& path) { return status_of(path).kind; }
    uint64_t file_size(const wide_string& path) { return status_of(path).bytes; }

    // Copies a regular file with its modification time and permissions (attributes), as far as the target's
    // file system supports them. Fails if the target exists, in any letter case, unless `replace` is set, and
    // if the source changes while it is read. After a failure there is no new target, and an existing target
    // is unchanged. On POSIX holes of a sparse file stay holes, and blocks are shared if the file system can
    // do so. There the target gets its name only when it is complete, unless the file system does not support
    // files without a name; in that case, and on Windows, a program that is killed can leave an incomplete
    // target.
    virtual outcome copy_file(const wide_string& source, const wide_string& target, bool replace) = 0;
    // Removes a file, even a read-only one, or a link but not its target; fails for a folder.
    virtual outcome delete_file(const wide_string& path) = 0;
    // Creates one level; fails if the name exists in any letter case or the parent folder does not exist.
    virtual outcome create_folder(const wide_string& path) = 0;
    // Removes a folder; fails if it is not empty.
    virtual outcome remove_folder(const wide_string& path) = 0;
    // Sets `entries` to the direct entries of the folder `path`, without "." and "..", ordered by name.
    // `entries` is empty on failure, even if only a part of the folder could not be read.
    virtual outcome list(const wide_string& path, std::vector<folder_entry>& entries) = 0;

    // Returns the same as `platform::folder_time`, or an earlier answer of this system.
    virtual std::filesystem::file_time_type time_of_folder(const wide_string& path);

    // Sets `spelling` to the name that the listing of `folder` has for `name`, ignoring letter case ("." and
    // ".." are their own spelling). Returns false and leaves `spelling` unchanged if there is no such entry
    // or the folder cannot be read.
    virtual bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) = 0;
    // Returns the identity of what the path leads to, following links.
    virtual file_identity identity_of(const wide_string& path) = 0;
    // True if both paths lead to the same existing file or folder, also through links or in another spelling.
    // False if one of them cannot be reached; `status_of` returns the reason.
    virtual bool same_file(const wide_string& a, const wide_string& b);
    // Renames `from` to `to` within one folder in one step, replacing an existing file of that name, even a
    // read-only one. A reader sees either the old file or the new one. On failure both are unchanged.
    virtual outcome rename_over(const wide_string& from, const wide_string& to) = 0;

    // Opens a file. Others can read it meanwhile, but cannot write to it while it is open for writing. The
    // caller owns `result`, which is null on failure. `create_always` creates the file or empties it;
    // `create_new` fails with `taken` if the name exists, even as a broken link. The failure `in_use` means
    // that another program has the file open in an incompatible way; a later attempt can succeed.
    virtual outcome open(const wide_string& path, access wanted, disposition how,
                         std::unique_ptr<file>& result) = 0;
    // Sleeps for about a millisecond, between two attempts to open a file.
    virtual void pause_1ms() = 0;
    // Sets `bytes` to the space that the user can still use on the volume of `folder`; unchanged on failure.
    virtual outcome free_space(const wide_string& folder, uint64_t& bytes) = 0;

    // Waits until a file's content, or the names in a folder, have reached the disk.
    virtual outcome flush(const wide_string& path) = 0;
    // Does the same for everything written to the volume of `folder`. Fails if only an administrator may do
    // so.
    virtual outcome flush_volume(const wide_string& folder) = 0;
};

// Returns a text that changes when the computer restarts. Until then whatever was written can be read back,
// whether or not it has reached the disk. Empty if it is unknown.
std::string boot_identity();

// Returns the target's actual system, never an override.
system& operating_system();

// Returns the innermost override, or `operating_system()` if there is none.
system& current_system();

// Makes `replacement` the current system for the life of this object. Overrides nest. They must be created
// and destroyed on one thread while no other thread uses the system.
class system_override {
public:
    explicit system_override(system& replacement);
    ~system_override();
    system_override(const system_override&) = delete;
    system_override& operator=(const system_override&) = delete;

private:
    system* previous_;
};

// Observes the progress of copies for the life of this object: `moved` is called with the number of bytes
// copied since the last call, several times for a large file, on the thread that copies. Only one may exist
// at a time; create and destroy it while no copy is running.
class transfer_watch {
public:
    explicit transfer_watch(std::function<void(uint64_t bytes)> moved);
    ~transfer_watch();
    transfer_watch(const transfer_watch&) = delete;
    transfer_watch& operator=(const transfer_watch&) = delete;
};
// Reports `bytes` copied bytes to the watch, if there is one.
void note_transfer(uint64_t bytes);

// Passes on the content of the files that `copy_file` copies during the life of this object, piece by piece
// and in order, so that a digest needs no second reading: `seen` is called on the thread that copies. Content
// that does not pass through the memory of this process is not seen: holes, blocks that the file system
// shares, and on Windows everything. So a file was seen as a whole if the pieces add up to its size. Only one
// may exist at a time; create and destroy it while no copy is running.
class content_watch {
public:
    explicit content_watch(std::function<void(const void* bytes, size_t length)> seen);
    ~content_watch();
    content_watch(const content_watch&) = delete;
    content_watch& operator=(const content_watch&) = delete;
};
// True if there is such a watch: a copy then goes through memory where that costs no sharing of blocks.
bool is_content_watched();
// Passes a piece of a copied file to the watch, if there is one.
void note_content(const void* bytes, size_t length);

// Returns the direct entries of `folder` as `list` does, or none if it fails.
std::vector<folder_entry> entries_or_none(system& files, const wide_string& folder);

// A folder that could not be listed, and why.
struct unread_folder {
    wide_string path;
    outcome reason;
};

// Returns all entries below `folder` at all depths, each folder before its content; empty if there is no such
// folder. A link to a folder that contains it is listed but not entered, so the walk always ends. A folder
// that cannot be read counts as empty and is added to `unread`.
std::vector<tree_entry> list_tree(system& files, const wide_string& folder,
                                  std::vector<unread_folder>* unread = nullptr);

} // namespace vs::project_resave::platform
