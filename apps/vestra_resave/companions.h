// Companion files that the bundle's rules do not copy: projections, indexes, world files, statistics, styles.
// The command copies them after the run, so that a copy opens in the same way as its source.
#pragma once

#include <string_view>
#include <vector>

#include "apps/vestra_resave/folder_files.h"
#include "operations/run/run_result.h"
#include "platform/wide_string.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

class source_elements;

using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

enum class companion_choice {
    known, // known kinds, and files that the format itself lists
    all,   // every file with the same stem in the folder that the run did not place
    none
};

// True if `rest` belongs to a known kind of companion. `rest` is the part of a file name after the name or
// stem of a data file and a dot, in any letter case: "prj", "aux.xml", "msk.ovr", "name.atx".
bool is_known_companion(wide_view rest);
// Returns the extensions of world files for the extension of the main file: "tfw" and "tifw" for ".tif". All
// are in lower case. ".wld", which every format can have, is a known companion instead.
std::vector<wide_string> world_endings(wide_view extension);

// A file that belongs to a main file next to it.
struct companion_name {
    wide_string name;
    size_t begins;        // length of the main file's name or stem in it
    bool is_known = true; // false if it only shares the stem
};
// Returns the companions of the main file at `path`; `files` are those of its folder. If `has_stem` is false,
// files that share only the stem are skipped, except world files, which are the same for all files of a stem.
std::vector<companion_name> companions_of(const folder_files& files, const wide_string& path, bool has_stem);
// Returns the names of the files next to `path` that a resave copies with it, as far as their names show it.
// `files` are those of its folder.
std::vector<wide_string> family_of(const wide_string& path, const folder_files& files);

// Copies the companions of all files that a finished run placed, next to each copy and under its stem, and
// registers them in the placement like other copies. Replaces no file; a companion that cannot be copied is
// reported as a fact of the element that has the main file. `source_paths` are the files of the source
// project, which the run no longer knows. The user can stop here as in the run and can have everything
// erased. Returns the result of the run and this step together.
vs::project_resave::run_result bring_companions(vs::project_resave::project_context& run,
                                                companion_choice which, const source_elements& elements,
                                                const std::vector<wide_string>& source_paths,
                                                vs::project_resave::run_result result);

} // namespace vestra::command
