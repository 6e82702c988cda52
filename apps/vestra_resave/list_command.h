// vestra-resave list: what is in a project, and which of its files are there.
#pragma once

#include <string>

#include "apps/vestra_resave/session.h"

namespace vestra::command {

int list_project(const std::string& project, const common_options& options);

} // namespace vestra::command
