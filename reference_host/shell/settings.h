// What the running host keeps beside any project. User-interface thread only.
#pragma once

#include <cstdint>

#include "reference_host/model/text.h"

namespace vestra {
class project;
}

namespace vestra::shell {

struct host_settings {
    std::uint32_t language_offset = 0;       // in the string tables: 0 base language, 50000 English
    bool invert_layers = false;              // people see the layers of a group in the reverse of their order
    vestra::project* open_project = nullptr; // not owned; null when none is open

    // One line each, for the user: why the last file that was read, or written, was refused; empty if it was
    // not.
    wide_string read_error;
    wide_string write_error;
};

// The one record of this process; whoever changes it may copy it before and put it back.
host_settings& settings();

} // namespace vestra::shell
