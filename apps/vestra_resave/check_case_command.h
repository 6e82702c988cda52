// vestra-resave check-case: which paths of a project differ from the disk's in letter case.
#pragma once

#include <string>

#include "apps/vestra_resave/session.h"

namespace vestra::command {

int check_case(const std::string& project, const std::string& report, const common_options& options);

} // namespace vestra::command
