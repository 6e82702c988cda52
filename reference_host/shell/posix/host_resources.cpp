// Registers the host library's own texts on targets whose libraries have no resource section.
#include <iterator>

#include "platform/posix/resource_registry.h"

namespace vestra::shell {

namespace {

namespace platform = vs::project_resave::platform;

constexpr uint32_t english = 50000;

// NOLINTBEGIN(bugprone-macro-parentheses): a list of rows is no expression
#define VS_TEXT(id, name, base, translated)                                                                  \
    platform::text_row{id, base}, platform::text_row{id + english, translated},
// NOLINTEND(bugprone-macro-parentheses)
constexpr platform::text_row rows[] = {
#include "reference_host/shell/host_texts.inc"
};
#undef VS_TEXT

// For the copy of the bundle that is linked in; a loaded bundle looks the texts up by name.
const bool registered = [] {
    platform::register_text_rows(platform::register_host_basic_module(), rows);
    return true;
}();

} // namespace

} // namespace vestra::shell

extern "C" vs::project_resave::platform::text_row_list vs_host_text_rows() {
    return {vestra::shell::rows, std::size(vestra::shell::rows)};
}
