// How a run over the tree ended.
#pragma once

#include "platform/wide_string.h"

namespace vs::project_resave {

enum class run_end {
    refused, // nothing is loaded, so nothing was done
    stopped, // by the user
    done,
};

struct run_result {
    run_end end = run_end::refused;
    // Whether what the run makes exists in whole: the new project, the text, all scene files.
    bool written = false;
    // Why not, in the operating system's words; empty where it says nothing. The facts of the report say
    // more.
    wide_string failure;

    // False only if the run was refused.
    explicit operator bool() const { return end != run_end::refused; }
};

} // namespace vs::project_resave
