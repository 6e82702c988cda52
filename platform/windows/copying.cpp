// Copies files on Windows. CopyFileEx keeps attributes and reports progress, but it may leave an incomplete
// file and does not notice that the source changed.

#include <algorithm>
#include <atomic>
#include <iterator>
#include <string>
#include <utility>

#include "platform/file_parts.h"
#include "platform/path_text.h"
#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// In the target's folder, so that it can replace the target in one step.
wide_string temporary_name(const wide_string& target) {
    static std::atomic<unsigned> count{0};
    const std::wstring number = std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
    return path_head(target) + u".copy-" + text16(number.c_str()) + u".tmp";
}

using file_state = WIN32_FILE_ATTRIBUTE_DATA;

outcome state_of(const wide_string& path, file_state& state) {
    return outcome_at(path, GetFileAttributesExW(wide(path.c_str()), GetFileExInfoStandard, &state) != FALSE);
}

bool is_unchanged(const file_state& before, const file_state& now) {
    return before.nFileSizeHigh == now.nFileSizeHigh && before.nFileSizeLow == now.nFileSizeLow &&
           CompareFileTime(&before.ftLastWriteTime, &now.ftLastWriteTime) == 0;
}

// True if the copy failed before it created the target, so that whatever exists there must not be removed.
bool made_nothing(const outcome& copied) {
    constexpr DWORD before_it_began[] = {ERROR_FILE_EXISTS,   ERROR_ALREADY_EXISTS, ERROR_SHARING_VIOLATION,
                                         ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND};
    return std::ranges::find(before_it_began, copied.code()) != std::end(before_it_began);
}

void remove(const wide_string& path) {
    in_spite_of_read_only(path, [&] { return DeleteFileW(wide(path.c_str())) != FALSE; });
}

DWORD CALLBACK note_progress(LARGE_INTEGER, LARGE_INTEGER moved, LARGE_INTEGER, LARGE_INTEGER, DWORD, DWORD,
                             HANDLE, HANDLE, void* noted) {
    // Windows reports the total so far, the watch takes the difference.
    uint64_t& before = *static_cast<uint64_t*>(noted);
    const auto now = static_cast<uint64_t>(moved.QuadPart);
    note_transfer(now - std::exchange(before, now));
    return PROGRESS_CONTINUE;
}

// Removes the target of a failed copy, and fails if another program wrote to the source meanwhile.
outcome copy_whole(const wide_string& from, const wide_string& to) {
    file_state before{};
    if (const outcome found = state_of(from, before); !found) return found;
    if (file_state existing{}; state_of(to, existing)) return failure::taken;
    uint64_t noted = 0;
    outcome copied = outcome_at(to, CopyFileExW(wide(from.c_str()), wide(to.c_str()), &note_progress, &noted,
                                                nullptr, COPY_FILE_FAIL_IF_EXISTS) != FALSE);
    if (made_nothing(copied)) return copied; // what exists there now was made by another program
    if (copied) {
        file_state now{};
        copied = state_of(from, now);
        if (copied && is_unchanged(before, now)) return copied;
        if (copied) copied = outcome::because(u"the file changed while it was copied");
    }
    remove(to);
    return copied;
}

// Both paths are in the operating system's form.
outcome replace(const wide_string& from, const wide_string& to) {
    return in_spite_of_read_only(to, [&] {
        return MoveFileExW(wide(from.c_str()), wide(to.c_str()), MOVEFILE_REPLACE_EXISTING) != FALSE;
    });
}

} // namespace

outcome copy_regular_file(const wide_string& source, const wide_string& target, bool replaces) {
    const wide_string from = system_path(source);
    const wide_string to = system_path(target);
    file_state existing{};
    if (!replaces || !state_of(to, existing)) return copy_whole(from, to);

    const wide_string beside = system_path(temporary_name(target));
    if (const outcome copied = copy_whole(from, beside); !copied) return copied;
    const outcome renamed = replace(beside, to);
    if (!renamed) remove(beside);
    return renamed;
}

outcome rename_file_over(const wide_string& from, const wide_string& to) {
    return replace(system_path(from), system_path(to));
}

} // namespace vs::project_resave::platform
