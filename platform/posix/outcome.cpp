// The kinds of failures by their codes on POSIX.
#include "platform/outcome.h"

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <utility>

#include "platform/text.h"

namespace vs::project_resave::platform {

namespace {

// The first code of each kind is the one used to construct a failure of that kind.
constexpr std::pair<failure, int> codes[] = {
    {failure::missing, ENOENT},     {failure::missing, ENOTDIR},  {failure::taken, EEXIST},
    {failure::denied, EACCES},      {failure::denied, EPERM},     {failure::denied, EROFS},
    {failure::in_use, EWOULDBLOCK}, {failure::disk_full, ENOSPC}, {failure::disk_full, EDQUOT},
    {failure::damaged, EIO},
};

} // namespace

// For a lock that another process holds, the operating system's words (resource temporarily unavailable)
// would be misleading.
outcome::outcome(failure kind)
    : outcome(static_cast<uint32_t>(std::ranges::find(codes, kind, &std::pair<failure, int>::first)->second),
              kind == failure::in_use ? u"another program has the file open" : nullptr) {}

outcome outcome::last() { return native(static_cast<uint32_t>(errno)); }

bool outcome::is(failure kind) const {
    return std::ranges::any_of(codes, [&](const auto& row) {
        return row.first == kind && static_cast<uint32_t>(row.second) == code_;
    });
}

wide_string outcome::text() const {
    if (*this) return {};
    return reason_ != nullptr ? reason_ : from_utf8(std::generic_category().message(static_cast<int>(code_)));
}

} // namespace vs::project_resave::platform
