// GDAL opens nearly all files through its own handler for the local disk. SQLite has its own layer below
// that, which some GDAL drivers use directly. Both are replaced here by read-only ones.
#include "reference_host/datasets/reading_only.h"

#include <cpl_error.h>
#include <cpl_vsi_virtual.h>
#include <sqlite3.h>

#include <cerrno>
#include <cstring>
#include <map>
#include <string_view>

namespace vestra::datasets {

namespace {

class read_only_files final : public VSIFilesystemHandler {
public:
    explicit read_only_files(VSIFilesystemHandler& inner) : inner_(inner) {}

    VSIVirtualHandle* Open(const char* path, const char* access, bool set_error,
                           CSLConstList options) override {
        // Any of these letters in the mode of fopen means writing.
        if (std::strpbrk(access, "wa+") == nullptr) return inner_.Open(path, access, set_error, options);
        refuse();
        return nullptr;
    }
    int Stat(const char* path, VSIStatBufL* status, int flags) override {
        return inner_.Stat(path, status, flags);
    }
    char** ReadDirEx(const char* folder, int limit) override { return inner_.ReadDirEx(folder, limit); }
    char** SiblingFiles(const char* path) override { return inner_.SiblingFiles(path); }
    VSIDIR* OpenDir(const char* folder, int depth, const char* const* options) override {
        return inner_.OpenDir(folder, depth, options);
    }
    int IsCaseSensitive(const char* path) override { return inner_.IsCaseSensitive(path); }

    int Unlink(const char*) override { return refuse(); }
    int Rename(const char*, const char*) override { return refuse(); }
    int Mkdir(const char*, long) override { return refuse(); }
    int Rmdir(const char*) override { return refuse(); }
    bool SupportsSequentialWrite(const char*, bool) override { return false; }
    bool SupportsRandomWrite(const char*, bool) override { return false; }

private:
    static int refuse() {
        errno = EROFS;
        return -1;
    }

    VSIFilesystemHandler& inner_;
};

// Looked up once, before this layer becomes the default one.
sqlite3_vfs* system_vfs() {
    static sqlite3_vfs* const own = sqlite3_vfs_find(nullptr);
    return own;
}

// Removes the shared-memory operations, because they create a file. A database in a mode that needs them can
// then only be opened as immutable, which GDAL does.
const sqlite3_io_methods* without_shared_memory(const sqlite3_io_methods* known) {
    static std::map<const sqlite3_io_methods*, sqlite3_io_methods> all;
    sqlite3_io_methods& methods = all.try_emplace(known, *known).first->second;
    methods.iVersion = 1;
    return &methods;
}

int open_to_read(sqlite3_vfs*, const char* name, sqlite3_file* opened, int flags, int* flags_used) {
    constexpr int logs = SQLITE_OPEN_WAL | SQLITE_OPEN_MAIN_JOURNAL | SQLITE_OPEN_SUPER_JOURNAL;
    // SQLite closes a file that could not be opened unless this is null.
    opened->pMethods = nullptr;
    if ((flags & logs) != 0) return SQLITE_CANTOPEN;
    const bool is_database = (flags & SQLITE_OPEN_MAIN_DB) != 0;
    // Temporary files, which SQLite keeps outside of the data, may still be written.
    if (is_database) flags = (flags & ~(SQLITE_OPEN_READWRITE | SQLITE_OPEN_CREATE)) | SQLITE_OPEN_READONLY;
    const int result = system_vfs()->xOpen(system_vfs(), name, opened, flags, flags_used);
    if (result == SQLITE_OK && is_database) opened->pMethods = without_shared_memory(opened->pMethods);
    return result;
}

int delete_nothing(sqlite3_vfs*, const char*, int) { return SQLITE_IOERR_DELETE; }

int is_accessible(sqlite3_vfs*, const char* name, int flags, int* result) {
    const std::string_view path = name;
    if (!path.ends_with("-wal") && !path.ends_with("-journal"))
        return system_vfs()->xAccess(system_vfs(), name, flags, result);
    *result = 0; // otherwise the log would be merged into the database
    return SQLITE_OK;
}

sqlite3_vfs& read_only_vfs() {
    static sqlite3_vfs own = [] {
        // Everything else, such as locks and the size of a file object, is the system's.
        sqlite3_vfs copy = *system_vfs();
        copy.zName = "vestra_read_only";
        copy.pNext = nullptr;
        copy.xOpen = &open_to_read;
        copy.xDelete = &delete_nothing;
        copy.xAccess = &is_accessible;
        return copy;
    }();
    return own;
}

// Also from before.
VSIFilesystemHandler& system_handler() {
    static VSIFilesystemHandler& own = *VSIFileManager::GetHandler("");
    return own;
}

int depth = 0; // number of living reading_only objects

} // namespace

reading_only::reading_only() {
    // Once for each object, since GDAL keeps a stack of them.
    CPLPushErrorHandler(&CPLQuietErrorHandler);
    if (depth++ > 0) return;
    static read_only_files files(system_handler());
    VSIFileManager::InstallHandler("", &files);
    sqlite3_vfs_register(&read_only_vfs(), 1);
}

reading_only::~reading_only() {
    if (--depth == 0) {
        sqlite3_vfs_register(system_vfs(), 1);
        VSIFileManager::InstallHandler("", &system_handler());
    }
    CPLPopErrorHandler();
}

} // namespace vestra::datasets
