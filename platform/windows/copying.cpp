#include "platform/windows/copying.h"

#include <algorithm>
#include <atomic>
#include <iterator>
#include <optional>
#include <string>

#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// Beside the target, so that it can take its place in one step.
wide_string temporary_name(const wide_string& target) {
    static std::atomic<unsigned> count{0};
    const std::wstring number = std::to_wstring(GetCurrentProcessId()) + L"-" + std::to_wstring(++count);
    const size_t separator = target.find_last_of(u"\\/");
    const wide_string folder = separator == wide_string::npos ? u"" : target.substr(0, separator + 1);
    return folder + u".copy-" + text16(number.c_str()) + u".tmp";
}

using file_state = WIN32_FILE_ATTRIBUTE_DATA;

std::optional<file_state> state_of(const wide_string& path) {
    file_state state{};
    if (!GetFileAttributesExW(wide(path.c_str()), GetFileExInfoStandard, &state)) return std::nullopt;
    return state;
}

bool is_unchanged(const file_state& before, const file_state& now) {
    return before.nFileSizeHigh == now.nFileSizeHigh && before.nFileSizeLow == now.nFileSizeLow &&
           CompareFileTime(&before.ftLastWriteTime, &now.ftLastWriteTime) == 0;
}

bool made_nothing(DWORD copy_error) {
    constexpr DWORD before_it_began[] = {ERROR_FILE_EXISTS,   ERROR_ALREADY_EXISTS, ERROR_SHARING_VIOLATION,
                                         ERROR_ACCESS_DENIED, ERROR_FILE_NOT_FOUND, ERROR_PATH_NOT_FOUND};
    return std::ranges::find(before_it_began, copy_error) != std::end(before_it_began);
}

// A copy that broke off can be left behind, and others may write into the source meanwhile.
bool copy_whole(const wide_string& from, const wide_string& to) {
    const auto before = state_of(from);
    if (!before || state_of(to)) return false;
    if (CopyFileW(wide(from.c_str()), wide(to.c_str()), TRUE) != FALSE) {
        const auto now = state_of(from);
        if (now && is_unchanged(*before, *now)) return true;
    } else if (made_nothing(GetLastError())) {
        return false; // what stands there now somebody else has made
    }
    in_spite_of_read_only(to, [&] { return DeleteFileW(wide(to.c_str())) != FALSE; });
    return false;
}

} // namespace

bool rename_file_over(const wide_string& from, const wide_string& to) {
    return in_spite_of_read_only(to, [&] {
        return MoveFileExW(wide(from.c_str()), wide(to.c_str()), MOVEFILE_REPLACE_EXISTING) != FALSE;
    });
}

bool copy_regular_file(const wide_string& source, const wide_string& target, bool replace) {
    const wide_string from = system_path(source);
    const wide_string to = system_path(target);
    if (!replace || !state_of(to)) return copy_whole(from, to);

    const wide_string beside = system_path(temporary_name(target));
    if (!copy_whole(from, beside)) return false;
    if (rename_file_over(beside, to)) return true;
    in_spite_of_read_only(beside, [&] { return DeleteFileW(wide(beside.c_str())) != FALSE; });
    return false;
}

} // namespace vs::project_resave::platform
