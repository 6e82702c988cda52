#include "reference_host/shell/settings.h"

namespace vestra::shell {

host_settings& settings() {
    static host_settings record;
    return record;
}

} // namespace vestra::shell
