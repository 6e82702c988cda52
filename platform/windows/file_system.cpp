// The operating system's files on Windows. Every call gets its path through `system_path`, which lifts the
// old limit of 260 characters.

#include <algorithm>

#include "platform/file_parts.h"
#include "platform/path_text.h"
#include "platform/system.h"
#include "platform/text.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

bool is_folder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

outcome attributes_of(const wide_string& path, WIN32_FILE_ATTRIBUTE_DATA& data) {
    const wide_string native = system_path(path);
    return outcome_at(native,
                      GetFileAttributesExW(wide(native.c_str()), GetFileExInfoStandard, &data) != FALSE);
}

outcome information_of(const wide_string& path, BY_HANDLE_FILE_INFORMATION& information) {
    constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const file_handle opened(CreateFileW(wide(system_path(path).c_str()), 0, share, nullptr, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS,
                                         nullptr)); // the flag allows folders, too
    return outcome::of_call(opened && GetFileInformationByHandle(opened.get(), &information) != FALSE);
}

// Windows counts time in steps of 100 nanoseconds since 1601.
int64_t nanoseconds(const FILETIME& time) {
    constexpr int64_t from_1601_to_1970 = 116'444'736'000'000'000;
    return (static_cast<int64_t>((uint64_t{time.dwHighDateTime} << 32) | time.dwLowDateTime) -
            from_1601_to_1970) *
           100;
}

entry_status status_in(const auto& data) {
    if (is_folder(data.dwFileAttributes)) return {entry_kind::folder};
    return {entry_kind::file,
            (uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow,
            {},
            nanoseconds(data.ftLastWriteTime)};
}

folder_entry entry_of(const WIN32_FIND_DATAW& found) {
    const bool is_link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return {text16(found.cFileName), is_folder(found.dwFileAttributes), is_link};
}

class windows_system final : public system {
public:
    entry_status status_of(const wide_string& path) override {
        WIN32_FILE_ATTRIBUTE_DATA data{};
        if (const outcome found = attributes_of(path, data); !found) return {entry_kind::none, 0, found};
        // The attributes of a link describe the link; those of its target need an open handle.
        if ((data.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return status_in(data);
        BY_HANDLE_FILE_INFORMATION followed{};
        const outcome found = information_of(path, followed);
        return found ? status_in(followed) : entry_status{entry_kind::none, 0, found};
    }

    outcome copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        if (replace && same_file(source, target))
            return outcome::because(u"source and target are the same file");
        return copy_regular_file(source, target, replace);
    }

    outcome delete_file(const wide_string& path) override {
        const wide_string native = system_path(path);
        constexpr DWORD link_to_folder = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
        const DWORD attributes = GetFileAttributesW(wide(native.c_str()));
        if (attributes == INVALID_FILE_ATTRIBUTES) return outcome_at(native, false);
        if ((attributes & link_to_folder) == link_to_folder) return remove_folder(path);
        // Other operating systems delete read-only files, too. This way copies of such files are removed when
        // a run is interrupted.
        return in_spite_of_read_only(native, [&] { return DeleteFileW(wide(native.c_str())) != FALSE; });
    }

    outcome create_folder(const wide_string& path) override {
        const wide_string native = system_path(path);
        return outcome_at(native, CreateDirectoryW(wide(native.c_str()), nullptr) != FALSE);
    }

    outcome remove_folder(const wide_string& path) override {
        const wide_string native = system_path(path);
        return outcome_at(native, RemoveDirectoryW(wide(native.c_str())) != FALSE);
    }

    outcome list(const wide_string& path, std::vector<folder_entry>& entries) override {
        entries.clear();
        if (const entry_status there = status_of(path); there.kind != entry_kind::folder)
            return there.kind == entry_kind::file ? outcome::native(ERROR_DIRECTORY) : there.reason;
        const wide_string pattern = system_path(path_with_separator(path) + u"*");
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW(wide(pattern.c_str()), &found);
        if (search == INVALID_HANDLE_VALUE) { // an empty drive has no entries at all, not even "."
            const outcome refused = outcome::last();
            return refused.code() == ERROR_FILE_NOT_FOUND ? outcome() : refused;
        }
        do {
            const wide_view name = text16(found.cFileName);
            if (name != u"." && name != u"..") entries.push_back(entry_of(found));
        } while (FindNextFileW(search, &found));
        const outcome ended = outcome::last();
        FindClose(search);
        if (ended.code() != ERROR_NO_MORE_FILES) {
            entries.clear();
            return ended;
        }
        std::ranges::sort(entries, {}, &folder_entry::name);
        return {};
    }

    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        if (name == u"." || name == u"..") {
            spelling = name;
            return true;
        }
        // The search call treats some of these characters as wildcards.
        if (folder.empty() || name.empty()) return false;
        if (name.find_first_of(u"\\/:*?<>\"") != wide_string::npos) return false;
        const wide_string path = system_path(path_with_separator(folder) + name);
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW(wide(path.c_str()), &found);
        if (search == INVALID_HANDLE_VALUE) return false;
        FindClose(search);
        // A short name of the old form (PROGRA~1) also finds an entry, but is not its name.
        if (compare_no_case(text16(found.cFileName), name) != 0) return false;
        spelling = text16(found.cFileName);
        return true;
    }

    file_identity identity_of(const wide_string& path) override {
        BY_HANDLE_FILE_INFORMATION found{};
        const DWORD attributes = GetFileAttributesW(wide(system_path(path).c_str()));
        const bool is_link =
            attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
        if (!information_of(path, found)) return {0, 0, is_link ? 2U : 0U, is_link};
        const uint64_t number = (uint64_t{found.nFileIndexHigh} << 32) | found.nFileIndexLow;
        return {found.dwVolumeSerialNumber, number, is_link || found.nNumberOfLinks > 1 ? 2U : 1U, is_link,
                is_folder(found.dwFileAttributes)};
    }

    outcome rename_over(const wide_string& from, const wide_string& to) override {
        return rename_file_over(from, to);
    }

    outcome open(const wide_string& path, access access_wanted, disposition how,
                 std::unique_ptr<file>& result) override {
        return open_regular_file(path, access_wanted, how, result);
    }

    void pause_1ms() override { Sleep(1); }

    outcome free_space(const wide_string& folder, uint64_t& bytes) override {
        const wide_string native = system_path(folder);
        ULARGE_INTEGER available{};
        if (!GetDiskFreeSpaceExW(wide(native.c_str()), &available, nullptr, nullptr))
            return outcome_at(native, false);
        bytes = available.QuadPart;
        return {};
    }

    // The file system's own journal preserves names.
    outcome flush(const wide_string& path) override {
        if (kind_of(path) == entry_kind::folder) return {};
        constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
        const file_handle opened(CreateFileW(wide(system_path(path).c_str()), GENERIC_WRITE, share, nullptr,
                                             OPEN_EXISTING, 0, nullptr));
        return outcome::of_call(opened && FlushFileBuffers(opened.get()) != FALSE);
    }

    outcome flush_volume(const wide_string&) override { return failure::denied; }
};

} // namespace

// Rounded to the minute, because the two clocks drift apart.
std::string boot_identity() {
    FILETIME now{};
    GetSystemTimeAsFileTime(&now);
    const int64_t since = nanoseconds(now) / 1'000'000 - static_cast<int64_t>(GetTickCount64());
    return std::to_string((since + 30'000) / 60'000);
}

system& operating_system() {
    static windows_system own;
    return own;
}

} // namespace vs::project_resave::platform
