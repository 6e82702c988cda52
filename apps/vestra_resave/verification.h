// Whether a project stands alone: all that it refers to is there, below its own folder.
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

struct verification {
    wide_string project;
    size_t references = 0; // looked at
    // References that lead outside of the project's folder, through a link too, or to nothing, or to an empty
    // file, and what could not be read: a scene or layer file, a data set of the host's own, a folder.
    std::vector<problem> astray;
    std::vector<problem> differing; // copies, whose source is `path`; files that are not as in the manifest
    bool stopped = false;           // before its end
};

struct verify_settings {
    bool elsewhere = false; // as if the project's folder were on another disk, and nothing but it
    // Called, unless empty, once for each data set below the project's folder, with the first element that
    // refers to it and the files that exist of those it needs.
    std::function<void(const vs::project_resave::element_name& element, const wide_string& path,
                       const std::vector<wide_string>& files)>
        on_data_set = {};
};

// Both add what they find, and ask `is_stopped` now and then.
//
// Looks at the references of the loaded project, of the scene files that it shows and of those scene and
// layer files that are among `further`, at the items that services keep in it, at the files that they report
// for its elements, and at all files that each of those data sets needs.
void verify(vs::project_resave::project_context& context, std::span<const wide_string> further,
            const verify_settings& settings, const std::function<bool()>& is_stopped, verification& found);
// All files below the folder of the loaded project, for `further`. A folder that cannot be read is added to
// what was found.
std::vector<wide_string> files_beside(const vs::project_resave::project_context& context,
                                      verification& found);
// Looks at copies that are not as their sources, byte by byte; of a folder at all that the source holds. A
// scene file is passed over, as it was written anew.
void compare(std::span<const vs::project_resave::placed_file> copies, const std::function<bool()>& is_stopped,
             verification& found);

// A line for each finding, without the name of the program.
std::vector<std::string> lines_of(const verification& found);

} // namespace vestra::command
