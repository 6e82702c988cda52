// Implements the questions of runs for a person at the host, with the host's boxes and the bundle's dialogs.
// Main thread only.
#pragma once

#include "operations/run/run_questions.h"

namespace vs::project_resave {

// While a box or dialog is open, the user can reach other parts of the window, so callers must be ready for
// their events.
class host_questions : public run_questions {
public:
    // Asks with a yes/no box.
    bool add_referenced() override;
    // Asks with a box of three buttons: yes erases what was created, no keeps it, cancel continues.
    stop_answer on_stop() override;
    // Asks with the dialog for another path (dialogs.h).
    unique_name_answer new_name(const wide_string& source, const wide_string& proposed) override;
    // Asks with a yes/no box; false keeps the panel without a project.
    bool reopen_source() override;
    // Shows one box: that the run was stopped, that the project was not saved, that it was saved, or that it
    // was saved with problems, which are then listed. A long list is shown in a dialog instead.
    void show_report(const run_report& report) override;
    void show_message(int32_t text) override;
    void show_error(int32_t text, const wide_string& path = {}) override;
};

} // namespace vs::project_resave
