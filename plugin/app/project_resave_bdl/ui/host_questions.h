// Implements the questions of runs for a person at the host, with the host's boxes and the bundle's dialogs.
// Main thread only.
#pragma once

#include "operations/run/run_questions.h"

namespace vs::project_resave {

class host_questions : public run_questions {
public:
    bool add_referenced() override;
    stop_answer on_stop() override;
    unique_name_answer new_name(const wide_string& source, const wide_string& proposed) override;
    bool reopen_source() override;
    void show_report(const run_report& report) override;
    void show_message(int32_t text) override;
    void show_error(int32_t text, const wide_string& path = {}) override;
};

} // namespace vs::project_resave
