// vestra-resave structure: what is in a project, as a text file.
#pragma once

#include <string>

#include "apps/vestra_resave/session.h"
#include "operations/structure_run.h"

namespace vestra::command {

struct structure_wish {
    std::string project;
    std::string text_file;
    vs::project_resave::structure_settings settings; // all but the output path
};

int write_structure(const structure_wish& wish, const common_options& options);

} // namespace vestra::command
