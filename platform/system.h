// The operating system as an object: every file call of the bundle goes through `current_system()`, so that
// a test can replace it by a wrapper that fails the n-th copy, fills the disk or counts calls.
//
// Paths have their Windows form (C:\data\a.shp; "/" is a separator too) on every target. Letter case is
// ignored when a name is looked up, the exact spelling being preferred. No function throws; a path that
// cannot be expressed on the target (unknown drive, embedded zero) is one that does not exist.
//
// Each call that can fail returns an outcome. A failure carries the reason that came first: what the call
// does afterwards to clean up does not replace it.
#pragma once

#include <cstddef>
#include <cstdint>
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

// What a path leads to, whatever its spelling. Equal exactly for paths to the same file or folder; nothing
// exists under a path whose identity is empty.
struct file_identity {
    uint64_t volume = 0;
    uint64_t number = 0;  // on the volume; 0 where nothing exists
    uint32_t names = 0;   // how many there are; more than one also for a link
    bool is_link = false; // the path itself is one, perhaps a broken one
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
    file_identity identity = {}; // what `identity_of` returns for the path, where the operating system gives
                                 // it in the same answer; else empty
};

// One direct entry of a folder. For a link `is_folder` is about its target.
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

    // Reads up to `length` bytes from the current position. `count` is what was read: fewer than `length` at
    // the end of the file, which is a success, and on failure.
    virtual outcome read(void* buffer, size_t length, size_t& count) = 0;
    // Reads exactly `length` bytes; fails where the file ends before.
    outcome read_whole(void* buffer, size_t length);
    // Writes all `length` bytes at the current position; on failure some may have been written.
    virtual outcome write(const void* bytes, size_t length) = 0;
    // Moves the position to the end of the file.
    virtual outcome seek_end() = 0;
    // Current size in bytes; 0 on failure.
    virtual uint64_t size() = 0;
    // Waits until the disk has what was written.
    virtual outcome flush() { return {}; }
    // Closes it before the destructor would; nothing else is called after that. Fails if the operating
    // system could not keep what was written: some report it only here.
    virtual outcome close() = 0;
};

// All functions may be called from any thread, but see `system_override`.
class system {
public:
    virtual ~system() = default;

    // Returns what exists under `path`, following links; `none` also for a broken link, a device or a pipe,
    // and for what cannot be reached, whose reason is not `missing`.
    virtual entry_status status_of(const wide_string& path) = 0;
    entry_kind kind_of(const wide_string& path) { return status_of(path).kind; }
    uint64_t file_size(const wide_string& path) { return status_of(path).bytes; }

    // Copies a regular file with its modification time and permissions (attributes), as far as the target's
    // file system has them. Fails if the target exists, also in another letter case, unless `replace`, and
    // if the source changes while it is read. After a failure there is no new target, and one that was to be
    // replaced is as before. On POSIX holes of a sparse file stay holes, and blocks are shared where the
    // file system can. There the target gets its name once it is complete, unless the file system has no
    // files without a name; elsewhere a program that is killed can leave a half one.
    virtual outcome copy_file(const wide_string& source, const wide_string& target, bool replace) = 0;
    // Removes a file, read-only too, or a link but not its target; fails for a folder.
    virtual outcome delete_file(const wide_string& path) = 0;
    // Creates one level; fails if the name exists in any letter case or the level above does not.
    virtual outcome create_folder(const wide_string& path) = 0;
    // Removes an empty folder; fails if it holds anything.
    virtual outcome remove_folder(const wide_string& path) = 0;
    // Fills `entries` with the direct entries of the folder `path`, without "." and "..", ordered by name.
    // They are empty on failure, also if the folder could not be read to its end.
    virtual outcome list(const wide_string& path, std::vector<folder_entry>& entries) = 0;

    // Sets `spelling` to the name that the listing of `folder` has for `name`, compared without letter case
    // ("." and ".." are their own spelling). Returns false, with `spelling` unchanged, if there is none or
    // the folder cannot be read.
    virtual bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) = 0;
    // Returns what the path leads to, following links.
    virtual file_identity identity_of(const wide_string& path) = 0;
    // True if both paths lead to the same existing file or folder, through links or other spellings too.
    // False if one cannot be reached; `status_of` returns the reason.
    virtual bool same_file(const wide_string& a, const wide_string& b);
    // Moves `from` to `to` within one folder in one step, replacing a file of that name, a read-only one
    // too: a reader sees the old file or the new one. On failure both are as before.
    virtual outcome rename_over(const wide_string& from, const wide_string& to) = 0;

    // Opens a file. Others can read it meanwhile, but cannot write it while it is open to be written. The
    // caller owns `result`, which is null on failure. `create_always` creates the file or empties it;
    // `create_new` fails with `taken` where anything has the name, also a link that leads nowhere.
    // The failure `in_use` means that another program has the file open in a way that excludes this one; a
    // later try can succeed.
    virtual outcome open(const wide_string& path, access wanted, disposition how,
                         std::unique_ptr<file>& result) = 0;
    // Sleeps about a millisecond, between two tries to open.
    virtual void pause_1ms() = 0;
    // Sets `bytes` to what the user can still write on the volume of `folder`; unchanged on failure.
    virtual outcome free_space(const wide_string& folder, uint64_t& bytes) = 0;

    // Waits until the disk has what was written to a file, or the names in a folder.
    virtual outcome flush(const wide_string& path) = 0;
    // The same for all that was written on the volume of `folder`. Fails where only an administrator may.
    virtual outcome flush_volume(const wide_string& folder) = 0;
};

// Returns a text that changes when the computer starts anew: until then it keeps what was written, whether
// the disk has it or not. Empty if it is unknown.
std::string boot_identity();

// Returns the target's own system, never an override.
system& operating_system();

// Returns the innermost override, or `operating_system()` if there is none.
system& current_system();

// Makes `replacement` the current system as long as this object exists. Overrides nest; they are created and
// destroyed on one thread while no other thread uses the system.
class system_override {
public:
    explicit system_override(system& replacement);
    ~system_override();
    system_override(const system_override&) = delete;
    system_override& operator=(const system_override&) = delete;

private:
    system* previous_;
};

// Watches how far copies come, as long as this object exists: `moved` is called with the number of bytes,
// often in a large file, whoever copies. One at a time; created and destroyed while nothing is copied.
class transfer_watch {
public:
    explicit transfer_watch(std::function<void(uint64_t bytes)> moved);
    ~transfer_watch();
    transfer_watch(const transfer_watch&) = delete;
    transfer_watch& operator=(const transfer_watch&) = delete;
};
// Tells the watch, if there is one.
void note_transfer(uint64_t bytes);

// Returns the direct entries of `folder` as `list` does, or none if it fails.
std::vector<folder_entry> entries_or_none(system& files, const wide_string& folder);

// A folder that could not be listed.
struct unread_folder {
    wide_string path;
    outcome reason;
};

// Returns all entries below `folder` at all depths, each folder before its content; empty if there is no
// such folder. A link to a folder that contains it is an entry but is not entered, so the walk always ends.
// A folder that cannot be read counts as empty, and is added to `unread`.
std::vector<tree_entry> list_tree(system& files, const wide_string& folder,
                                  std::vector<unread_folder>* unread = nullptr);

} // namespace vs::project_resave::platform
