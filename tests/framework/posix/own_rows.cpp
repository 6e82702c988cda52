// The rows of windows/own_rows.rc for targets whose programs have no resource section.
#include "platform/posix/resource_registry.h"

namespace vs::project_resave {
namespace {

constexpr platform::text_row rows[] = {{40001, wide_view(u"own zero\0", 9)}, {40002, u"without"}};
[[maybe_unused]] const bool registered = (platform::register_text_rows(platform::own_module(), rows), true);

} // namespace
} // namespace vs::project_resave
