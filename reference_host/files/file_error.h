// The reason why a file of the host could not be read or written.
#pragma once

#include <cstddef>
#include <string>

#include "platform/text.h"
#include "reference_host/model/counted.h"

namespace vestra::files {

// An error with the file, its line and the reason. The file is a drive path, as it was requested.
struct file_error {
    wide_string file;
    std::size_t line = 0; // from 1; 0 if the fault does not belong to a line
    wide_string reason;   // the operating system's text if the error came from it

    // Returns one line for the user, like: C:\prj\area._vp:12: element <layer> lacks attribute "uuid"
    wide_string text() const { return file + (line ? u":" + number() : u"") + u": " + reason; }
    // Returns the same without the file, like: line 12: element <layer> lacks attribute "uuid"
    wide_string why() const { return (line ? u"line " + number() + u": " : u"") + reason; }

private:
    wide_string number() const { return vs::project_resave::platform::from_utf8(std::to_string(line)); }
};

} // namespace vestra::files
