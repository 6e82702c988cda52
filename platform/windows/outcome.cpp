// The kinds of failures by their codes on Windows, and the operating system's words for a code.
#include "platform/outcome.h"

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>

#include "platform/windows/paths.h"

namespace vs::project_resave::platform {

namespace {

// The first code of each kind is the one used to construct a failure of that kind.
constexpr std::pair<failure, DWORD> codes[] = {
    {failure::missing, ERROR_FILE_NOT_FOUND},     {failure::missing, ERROR_PATH_NOT_FOUND},
    {failure::taken, ERROR_FILE_EXISTS},          {failure::taken, ERROR_ALREADY_EXISTS},
    {failure::denied, ERROR_ACCESS_DENIED},       {failure::denied, ERROR_WRITE_PROTECT},
    {failure::in_use, ERROR_SHARING_VIOLATION},   {failure::disk_full, ERROR_DISK_FULL},
    {failure::disk_full, ERROR_HANDLE_DISK_FULL}, {failure::damaged, ERROR_CRC},
};

wide_string system_words(uint32_t code) {
    // The flag removes the line breaks that longer texts have.
    constexpr DWORD flags =
        FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK;
    wchar_t words[512];
    const DWORD length = FormatMessageW(flags, nullptr, code, 0, words, DWORD{std::size(words)}, nullptr);
    if (length == 0) return u"error " + wide_string(text16(std::to_wstring(code).c_str()));
    const wide_string text(text16(words), length);
    return text.substr(0, text.find_last_not_of(u" \r\n.") + 1);
}

} // namespace

outcome::outcome(failure kind)
    : outcome(uint32_t{std::ranges::find(codes, kind, &std::pair<failure, DWORD>::first)->second}, nullptr) {}

outcome outcome::last() { return native(GetLastError()); }

bool outcome::is(failure kind) const {
    return std::ranges::any_of(codes,
                               [&](const auto& row) { return row.first == kind && row.second == code_; });
}

wide_string outcome::text() const {
    if (*this) return {};
    return reason_ != nullptr ? reason_ : system_words(code_);
}

} // namespace vs::project_resave::platform
