// What is checked before a resave copies its first file, and names that not every disk takes.
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

// Refuses (2) a project with files on drives or shares that this computer does not have. The problems name
// each of them once, with the number of files, those of scenes that its maps show among them. What is not
// selected does not count.
std::optional<refusal> refuse_missing_drives(const std::vector<element>& elements,
                                             vs::project_resave::project_context& context);

// Refuses (3) an existing folder in which no file can be created, which has too little space for what is
// selected with its companions, or which does not take the longest file name among them, or that under which
// the new project is written. Files count in whole blocks of the disk. Space is not checked where the person
// knows better: a sparse file needs less than its size. Leaves nothing in the folder.
std::optional<refusal> refuse_target(const wide_string& folder, const resave_request& request,
                                     const vs::project_resave::project_context& context,
                                     const source_elements& source);

// Adds a problem for each copy and each folder of copies that a Windows disk would not take by its name. Each
// name of one folder is reported once.
void add_unportable_names(const vs::project_resave::run_state& run, std::vector<problem>& all);

} // namespace vestra::command
