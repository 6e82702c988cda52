// What the running host keeps beside any project. User-interface thread only.
#pragma once

#include <cstdint>
#include <vector>

#include "reference_host/model/text.h"

namespace vestra {
class project;
}

namespace vestra::shell {

// A project, scene or layer file that could not be written, so that what stood there before still does.
struct refused_file {
    wide_string path;   // as it was asked for
    wide_string reason; // a line for the user
};

struct host_settings {
    std::uint32_t language_offset = 0;       // in the string tables: 0 base language, 50000 English
    bool invert_layers = false;              // people see the layers of a group in the reverse of their order
    vestra::project* open_project = nullptr; // not owned; null when none is open

    wide_string read_error; // a line for the user: why the last file that was read was refused; or empty
    std::vector<refused_file> refused_writes; // all since somebody emptied it
};

// The one record of this process; whoever changes it may copy it before and put it back.
host_settings& settings();

} // namespace vestra::shell
