// What came of a run, a run that was tried out, or a look at a project, as rows for a person.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave_window/tool_record.h"
#include "reference_host/shell/front_end.h"

namespace vestra::window {

struct outcome_row {
    QString element;        // with what it is in
    QString source, target; // as the operating system names them
    std::optional<quint64> bytes;
    QString state, reason;
    bool is_problem = false;
};

struct run_outcome {
    QString title;   // which kind of run it was
    QString summary; // one line
    std::vector<outcome_row> rows;
};

// What the tool's last run came to, with what it leaves wanting: both projects are read once more for that.
run_outcome outcome_of_run(const tool_record& record, shell::front_end& person);
// What a run would come to with these settings. Nothing is written; what a run asks is asked.
run_outcome tried_out(const tool_record& settings, shell::front_end& person);
// Whether a project needs nothing outside of its folder.
run_outcome looked_at(const wide_string& project, shell::front_end& person);

} // namespace vestra::window
