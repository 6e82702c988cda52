// vestra-resave scenes: the 2D scenes of a project as files of their own.
#pragma once

#include <string>

#include "apps/vestra_resave/session.h"
#include "operations/scene_files_run.h"

namespace vestra::command {

struct scenes_wish {
    std::string project;
    std::string folder;
    vs::project_resave::scene_file_settings settings; // all but the folder
};

int write_scenes(const scenes_wish& wish, const common_options& options);

} // namespace vestra::command
