#include <algorithm>
#include <optional>

#include "platform/system.h"
#include "platform/text.h"
#include "platform/windows/copying.h"
#include "platform/windows/open_file.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

bool is_folder(DWORD attributes) { return (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0; }

std::optional<WIN32_FILE_ATTRIBUTE_DATA> attributes_of(const wide_string& path) {
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (!GetFileAttributesExW(wide(system_path(path).c_str()), GetFileExInfoStandard, &data))
        return std::nullopt;
    return data;
}

std::optional<BY_HANDLE_FILE_INFORMATION> identity_of(const wide_string& path) {
    constexpr DWORD share = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
    const file_handle opened(CreateFileW(wide(system_path(path).c_str()), 0, share, nullptr, OPEN_EXISTING,
                                         FILE_FLAG_BACKUP_SEMANTICS, nullptr)); // the flag admits folders
    BY_HANDLE_FILE_INFORMATION information{};
    if (!opened || !GetFileInformationByHandle(opened.get(), &information)) return std::nullopt;
    return information;
}

entry_status status_in(const auto& data) {
    if (is_folder(data.dwFileAttributes)) return {entry_kind::folder};
    return {entry_kind::file, (uint64_t{data.nFileSizeHigh} << 32) | data.nFileSizeLow};
}

folder_entry entry_of(const WIN32_FIND_DATAW& found) {
    const bool is_link = (found.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
    return {text16(found.cFileName), is_folder(found.dwFileAttributes), is_link};
}

class windows_system final : public system {
public:
    entry_kind kind_of(const wide_string& path) override { return status_of(path).kind; }
    uint64_t file_size(const wide_string& path) override { return status_of(path).bytes; }

    entry_status status_of(const wide_string& path) override {
        const auto data = attributes_of(path);
        if (!data) return {};
        if ((data->dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return status_in(*data);
        const auto followed = identity_of(path);
        return followed ? status_in(*followed) : entry_status{};
    }

    bool copy_file(const wide_string& source, const wide_string& target, bool replace) override {
        if (replace && same_file(source, target)) return false;
        return copy_regular_file(source, target, replace);
    }

    bool delete_file(const wide_string& path) override {
        const wide_string native = system_path(path);
        constexpr DWORD link_to_folder = FILE_ATTRIBUTE_DIRECTORY | FILE_ATTRIBUTE_REPARSE_POINT;
        const DWORD attributes = GetFileAttributesW(wide(native.c_str()));
        if (attributes == INVALID_FILE_ATTRIBUTES) return false;
        if ((attributes & link_to_folder) == link_to_folder) return remove_folder(path);
        // Other systems delete what is read-only, too; so do copies of such files go that a stop erases.
        return in_spite_of_read_only(native, [&] { return DeleteFileW(wide(native.c_str())) != FALSE; });
    }

    bool create_folder(const wide_string& path) override {
        return CreateDirectoryW(wide(system_path(path).c_str()), nullptr) != FALSE;
    }

    bool remove_folder(const wide_string& path) override {
        return RemoveDirectoryW(wide(system_path(path).c_str())) != FALSE;
    }

    std::optional<std::vector<folder_entry>> list(const wide_string& path) override {
        std::vector<folder_entry> entries;
        if (kind_of(path) != entry_kind::folder) return std::nullopt;
        const bool has_separator = path.ends_with(u'\\') || path.ends_with(u'/');
        const wide_string pattern = system_path(path + (has_separator ? u"*" : u"\\*"));
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW(wide(pattern.c_str()), &found);
        if (search == INVALID_HANDLE_VALUE) // an empty drive has no entry at all
            return GetLastError() == ERROR_FILE_NOT_FOUND ? std::optional(entries) : std::nullopt;
        do {
            const wide_view name = text16(found.cFileName);
            if (name != u"." && name != u"..") entries.push_back(entry_of(found));
        } while (FindNextFileW(search, &found));
        const bool is_whole = GetLastError() == ERROR_NO_MORE_FILES;
        FindClose(search);
        if (!is_whole) return std::nullopt;
        std::ranges::sort(entries, {}, &folder_entry::name);
        return entries;
    }

    bool true_name(const wide_string& folder, const wide_string& name, wide_string& spelling) override {
        if (name == u"." || name == u"..") {
            spelling = name;
            return true;
        }
        if (folder.empty() || name.empty()) return false;
        if (name.find_first_of(u"\\/:*?<>\"") != wide_string::npos) return false;
        const bool has_separator = folder.ends_with(u'\\') || folder.ends_with(u'/');
        const wide_string path = system_path(folder + (has_separator ? u"" : u"\\") + name);
        WIN32_FIND_DATAW found{};
        const HANDLE search = FindFirstFileW(wide(path.c_str()), &found);
        if (search == INVALID_HANDLE_VALUE) return false;
        FindClose(search);
        // A short name of the old form (PROGRA~1) leads to an entry too, but is not its name.
        if (compare_no_case(text16(found.cFileName), name) != 0) return false;
        spelling = text16(found.cFileName);
        return true;
    }

    bool same_file(const wide_string& a, const wide_string& b) override {
        const auto first = identity_of(a);
        const auto second = identity_of(b);
        return first && second && first->dwVolumeSerialNumber == second->dwVolumeSerialNumber &&
               first->nFileIndexHigh == second->nFileIndexHigh &&
               first->nFileIndexLow == second->nFileIndexLow;
    }

    bool rename_over(const wide_string& from, const wide_string& to) override {
        return rename_file_over(system_path(from), system_path(to));
    }

    open_result open(const wide_string& path, access access_wanted, disposition how,
                     std::unique_ptr<file>& result) override {
        return open_regular_file(path, access_wanted, how, result);
    }

    void pause_1ms() override { Sleep(1); }

    std::optional<uint64_t> free_space(const wide_string& folder) override {
        ULARGE_INTEGER available{};
        if (!GetDiskFreeSpaceExW(wide(system_path(folder).c_str()), &available, nullptr, nullptr))
            return std::nullopt;
        return available.QuadPart;
    }
};

} // namespace

system& operating_system() {
    static windows_system own;
    return own;
}

} // namespace vs::project_resave::platform
