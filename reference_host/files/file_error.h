// Why a file of the host could not be read or written.
#pragma once

#include <cstddef>
#include <string>

#include "platform/text.h"
#include "reference_host/model/counted.h"

namespace vestra::files {

struct file_error {
    wide_string file;
    std::size_t line = 0; // from 1; 0 when the fault is not in a line
    wide_string reason;

    // One line for the user, like: C:\prj\area._vp:12: element <layer> lacks attribute "uuid"
    wide_string text() const {
        const std::string at = line ? ":" + std::to_string(line) : std::string();
        return file + vs::project_resave::platform::from_utf8(at) + u": " + reason;
    }
};

} // namespace vestra::files
