// The state that a loaded project and the runs over it share: every unit of the tree refers to it. Lives as
// long as the project_context that derives from it. Main thread only.
#pragma once

#include <cstdint>
#include <unordered_set>
#include <vector>

#include "host/types.h"
#include "logs/log_file.h"
#include "operations/run/deferred_joins.h"
#include "operations/run/path_placement.h"
#include "operations/run/registers.h"
#include "operations/run/resave_options.h"
#include "operations/run/run_progress.h"
#include "operations/run/run_questions.h"
#include "operations/run/run_report.h"
#include "operations/run/source_guard.h"
#include "operations/run/text_map.h"

namespace vs::project_resave {

class claimed_units;
class Tvs_resave_unit;

struct run_state {
    // `asked` must outlive this object.
    explicit run_state(run_questions& asked) : progress(asked) {}
    run_state(const run_state&) = delete;
    run_state& operator=(const run_state&) = delete;

    // The settings of the current run.
    resave_options options{&progress};
    run_progress progress;
    // The log of a run, which is also the writer of its text, and the log of a load.
    log_file log{&options.indent_unit};
    open_log_file open_log{&options.indent_unit};
    // Where files go, and what the run created.
    path_placement placement{&progress, &log, &report, &options, &guard};
    // Which elements take part, and how much data that is.
    project_resave::selection_register selection{&sizes};
    project_resave::size_register sizes;
    // What happened, and what must not be changed.
    run_report report;
    source_guard guard{&sizes};
    text_map<Tvs_resave_unit*> units; // by uuid text: the first unit built
    claimed_units* claims = nullptr;  // creates units for the elements it claims; not owned, may be null
    deferred_joins joins;
    uint32_t total_units = 0;
    bool case_differs = false;                      // result of the last check of the letter case
    std::unordered_set<wide_string> loading_scenes; // path keys of the map scenes being loaded
};

} // namespace vs::project_resave
