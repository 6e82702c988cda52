// Checks whether a project is self-contained: every file it refers to exists inside its folder. Nothing is
// changed.
#pragma once

#include <functional>
#include <span>
#include <string>
#include <vector>

#include "apps/vestra_resave/problems.h"
#include "operations/run/placed_files.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

// The findings of a verification.
struct verification {
    wide_string project;
    // The number of references checked. A file that two elements refer to counts twice.
    size_t references = 0;
    // References that point outside the project folder (also through a link), to a missing or to an empty
    // file, and everything that could not be read: a scene or layer file, a data set of the host, a folder.
    std::vector<problem> astray;
    std::vector<problem> differing; // copies, whose source is `path`, and files that differ from the manifest
    bool stopped = false;           // before the end
};

// How a verification is done.
struct verify_settings {
    bool elsewhere = false; // as if the project folder, and nothing else, were moved to another disk
    // If set, called once for each data set inside the project folder, with the first element that refers to
    // it and the existing files that it needs.
    std::function<void(const vs::project_resave::element_name& element, const wide_string& path,
                       const std::vector<wide_string>& files)>
        on_data_set = {};
};

// `verify` and `compare` add their findings and call `is_stopped` repeatedly; once it returns true they set
// `stopped` and skip the rest.
//
// Checks the references of the loaded project, of the scene files that it shows and of scene and layer files
// in `further`, the items that services store in it, the files that they report for its elements, and all
// files that each of these data sets needs. Files of other kinds in `further` are ignored. Each scene file,
// layer file and data set is read once.
void verify(vs::project_resave::project_context& context, std::span<const wide_string> further,
            const verify_settings& settings, const std::function<bool()>& is_stopped, verification& found);
// Returns all files below the folder of the loaded project, for `further`. A folder that cannot be read is
// added to the findings.
std::vector<wide_string> files_beside(const vs::project_resave::project_context& context,
                                      verification& found);
// Compares copies with their sources byte by byte; for a folder, everything in the source. Scene files are
// skipped, because they are written anew. Reports the bytes read of the sources to the current
// transfer_watch. Of the findings `path` is the source and `new_path` the copy.
void compare(std::span<const vs::project_resave::placed_file> copies, const std::function<bool()>& is_stopped,
             verification& found);

// Returns a line for each finding, without the program name, in the user's language.
std::vector<std::string> lines_of(const verification& found);

} // namespace vestra::command
