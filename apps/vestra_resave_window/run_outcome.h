// The result of a run, a dry run or a verification as rows of a table. Each function loads projects in a
// session next to the tool, so the tool's project and selection are unchanged. They block, and show progress
// and questions through `person`. If nothing could be done, the summary has the reason. Texts are in the
// current language.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "apps/vestra_resave/resave_plan.h"
#include "apps/vestra_resave_window/tool_record.h"
#include "reference_host/shell/front_end.h"

namespace vestra::window {

// One file or problem of a result.
struct outcome_row {
    // The caption of the element with that of its list; empty if the file belongs to none.
    QString element;
    QString source, target; // in the form of the operating system
    // No value for a problem.
    std::optional<quint64> bytes;
    QString state, reason;
    bool is_problem = false;
};

// A result as the window shows it.
struct run_outcome {
    QString title;   // the kind of run
    QString summary; // one line
    std::vector<outcome_row> rows;
};

// Returns the result of the tool's last run including its shortfalls, for which both projects are loaded
// again.
run_outcome outcome_of_run(const tool_record& record, shell::front_end& person);
// Returns what a run with these settings would do. Writes nothing; questions of the run are asked, except for
// names that are taken. Not possible with a bundle that copies its own files.
run_outcome tried_out(const tool_record& settings, shell::front_end& person);
// Returns whether a project needs anything outside its folder: a row for each finding, none for files that
// are all right.
run_outcome looked_at(const wide_string& project, shell::front_end& person);

} // namespace vestra::window
