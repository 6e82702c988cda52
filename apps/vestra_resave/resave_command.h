// vestra-resave resave: copies a project with all its files to a new place.
#pragma once

#include <optional>
#include <string>

#include "apps/vestra_resave/selection.h"
#include "apps/vestra_resave/session.h"

namespace vestra::command {

struct resave_wish {
    std::string project;
    std::string new_project;
    vs::project_resave::resave_settings settings; // all but the output path
    bool load_log = false;
    bool list_files = false; // print what went where
    bool verify = false;     // look at the new project when it is saved
    // Answers given beforehand; nothing means that the person is asked.
    std::optional<shell::answer> add_referenced;
    std::optional<shell::answer> on_stop; // yes erases, no keeps
    selection_wish selection;
};

int resave(const resave_wish& wish, const common_options& options);
// Tells what `resave` would do, and ends as it would. Nothing is written.
int plan_resave(const resave_wish& wish, const common_options& options);

} // namespace vestra::command
