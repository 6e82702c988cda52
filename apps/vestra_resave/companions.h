// Side files that the rules of a resave leave behind: projections, indexes, world files, statistics, styles.
// The command brings them once the run has ended, so that a copy opens as its source does.
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
    known, // those of known kinds, and what the format of the file lists itself
    all,   // every file of the folder with the same stem, unless the run placed it
    none
};

// True for what follows the stem or the whole name of a data file, and a dot, in the name of a companion of a
// known kind, in any letter case: "prj", "aux.xml", "msk.ovr", "name.atx".
bool is_known_companion(wide_view rest);
// Returns what follows the stem in the names of world files, from the extension of the main file: "tfw" and
// "tifw" for ".tif". All in lower case; ".wld", which serves every extension, counts as known.
std::vector<wide_string> world_endings(wide_view extension);

// A file next to a main one that belongs to it.
struct companion_name {
    wide_string name;
    size_t begins;        // as many characters of it are the main file's name or stem
    bool is_known = true; // its kind is; else it only has the stem
};
// Of the main file at `path`, in whose folder the files are. Without `has_stem` those of its stem are passed
// over, but for world files: they are the same for all files of one stem.
std::vector<companion_name> companions_of(const folder_files& files, const wide_string& path, bool has_stem);
// Returns the names of the files next to `path` that a resave brings along with it, as far as their names
// show it. `files` are those of its folder.
std::vector<wide_string> family_of(const wide_string& path, const folder_files& files);

// Copies the companions of all files that a finished run placed, next to each copy and under its stem. Each
// is entered in the placement like other copies. No file is replaced; one that cannot be brought becomes a
// fact of the element that has the main file. `source_paths` are the files of the source project, which the
// run has forgotten. The user can stop here as in the run, and can have all that was made erased. Returns the
// result of both.
vs::project_resave::run_result bring_companions(vs::project_resave::project_context& run,
                                                companion_choice which, const source_elements& elements,
                                                const std::vector<wide_string>& source_paths,
                                                vs::project_resave::run_result result);

} // namespace vestra::command
