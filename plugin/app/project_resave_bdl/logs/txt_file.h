// Plain text file that is open only while it is written to.
#pragma once

#include <cstdint>

#include "platform/wide_string.h"

namespace vs::project_resave {

class txt_file {
public:
    virtual ~txt_file() = default;

    // Takes the name. The file is only created under an empty name, and only then is the result true; under
    // any other one writing reaches a file that exists.
    virtual bool open(const wide_string& name);
    virtual void close();
    // The text of this number, a narrow text of the host, a wide text. Always true.
    virtual bool write(uint32_t row, bool end_line);
    virtual bool write(const char* text, bool end_line);
    virtual bool write(const wide_string& text, bool end_line);

    wide_string file_name;
};

} // namespace vs::project_resave
