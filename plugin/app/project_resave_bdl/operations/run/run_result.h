// How a run over the tree ended.
#pragma once

#include <vector>

#include "platform/wide_string.h"

namespace vs::project_resave {

enum class run_end {
    refused,   // nothing is loaded, so nothing was done
    stopped,   // by the user
    broke_off, // by an exception, which is a fact of the report
    done,
};

struct run_result {
    run_end end = run_end::refused;
    // Whether what the run makes exists in whole: the new project, the text, all scene files.
    bool written = false;
    // Why not, in the operating system's words or those of an exception; empty where they say nothing. The
    // facts of the report say more.
    wide_string failure;
    // What the run made itself: the new project, the text, scene and layer files, the log. Copies are in the
    // placement.
    std::vector<wide_string> files;

    // False only if the run was refused.
    explicit operator bool() const { return end != run_end::refused; }
};

} // namespace vs::project_resave
