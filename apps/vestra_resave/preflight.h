// Checks before a resave copies its first file, and file names that Windows does not accept. The project must
// be loaded and the selection applied.
#pragma once

#include <optional>
#include <vector>

#include "apps/vestra_resave/elements.h"
#include "apps/vestra_resave/problems.h"
#include "apps/vestra_resave/shortfalls.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// Returns an error with status 2 if the project has files on drives or shares that this computer does not
// have. Each drive is one problem with the number of its files, including those of scenes that maps show; for
// these the scene files are read. Elements that are not selected do not count.
std::optional<refusal> refuse_missing_drives(const std::vector<element>& elements,
                                             vs::project_resave::project_context& context);

// Returns an error with status 3 if the existing folder is not writable, has too little space for the
// selected files and their companions, or cannot store the longest file name among them or the temporary name
// of the new project. Creates and removes files in it to find out, and leaves none. Sizes are rounded up to
// whole blocks. Space is not checked with --ignore-space, because a sparse file needs less than its size, nor
// if the free space is unknown.
std::optional<refusal> refuse_target(const wide_string& folder, const resave_request& request,
                                     const vs::project_resave::project_context& context,
                                     const source_elements& source);

// Adds a problem for each copy and each new folder whose name Windows does not accept, on every operating
// system. Each name in a folder is reported once.
void add_unportable_names(const vs::project_resave::run_state& run, std::vector<problem>& all);

} // namespace vestra::command
