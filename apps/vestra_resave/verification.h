// Whether a project stands alone: all that it refers to is there, below its own folder.
#pragma once

#include <functional>
#include <nlohmann/json_fwd.hpp>
#include <span>
#include <string>
#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {
class project_context;
}
#include "operations/run/placed_files.h"

namespace vestra::command {

using vs::project_resave::wide_string;

// A reference that leads outside of the project's folder, to nothing, or to a scene file of no use.
struct astray_reference {
    std::string kind; // of the element that holds it
    wide_string caption;
    wide_string path;
    wide_string file;   // in which it stands: the project, or a scene or layer file
    std::string reason; // "outside", "missing", "both", "unreadable"
};

struct differing_copy {
    wide_string source;
    wide_string target;
    std::string reason; // "missing", "size", "content", "unreadable"
};

struct verification {
    wide_string project;
    size_t references = 0; // looked at
    std::vector<astray_reference> astray;
    std::vector<differing_copy> differing;
    bool stopped = false; // before its end
};

// Both add what they find, and ask `is_stopped` now and then.
//
// Looks at the references of the loaded project, of the scene files that it shows and of those scene and
// layer files that are among `further`, at the items that services keep in it, and at the files that they
// tell of its elements.
void verify(vs::project_resave::project_context& context, std::span<const wide_string> further,
            const std::function<bool()>& is_stopped, verification& found);
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
nlohmann::ordered_json json_of(const std::vector<astray_reference>& references);
nlohmann::ordered_json json_of(const std::vector<differing_copy>& copies);

} // namespace vestra::command
