// Log of a project's load, beside the source project. It never holds more than one line, the last step that
// the load reached: each step empties the file first. So a load that breaks off leaves the name of the unit
// in work.
#pragma once

#include "logs/log_file.h"

namespace vs::project_resave {

class open_log_file : public log_file {
public:
    using log_file::log_file;

    bool enabled = false;
    wide_string path;

    // Names the log after the project: a.b._vp has a.b_last_resave_open_log.txt beside it.
    void set_open_log_path(const wide_string& project_path, bool enable);

    // Lines round the reading of the project. These and the steps do nothing while the log is not enabled.
    void write_load_begin();
    void write_load_end();
    // A step into a unit and out of it; what lies between is one level deeper.
    void enter(const wide_string& text);
    void leave(const wide_string& text);

private:
    void write_only_line(const wide_string& text);
};

} // namespace vs::project_resave
