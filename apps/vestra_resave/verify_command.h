// vestra-resave verify: whether a project stands alone.
#pragma once

#include <string>

#include "apps/vestra_resave/terminal_host.h"

namespace vestra::command {

int verify_project(const std::string& project, const common_options& options);

} // namespace vestra::command
