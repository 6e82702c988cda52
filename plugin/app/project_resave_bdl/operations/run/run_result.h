// The result of a run over the tree.
#pragma once

#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

enum class run_end {
    refused,   // no project is loaded, so nothing was done
    stopped,   // by the user
    broke_off, // by an exception, which is a fact in the report
    done,
};

// Returned by each run.
struct run_result {
    run_end end = run_end::refused;
    // True if the run's output is complete: the new project, the text, all scene files.
    bool written = false;
    // Why the output is not complete, as text of the operating system or of an exception; may be empty. The
    // facts in the report say more.
    wide_string failure;
    // The files that the run wrote itself: the new project, the text, scene and layer files, the log. Copies
    // are in the placement.
    std::vector<wide_string> files;

    // False only if the run was refused.
    explicit operator bool() const { return end != run_end::refused; }
};

} // namespace vs::project_resave
