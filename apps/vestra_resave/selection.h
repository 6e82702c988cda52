// Element names on the command line and their effect on the selection.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/elements.h"
#include "operations/run/registers.h"

namespace vestra::command {

// Each name is the uuid or caption of one element, or selects all matching elements: "type:" with a layer
// type, "group:" with the caption of a group, "missing" for elements whose file does not exist, or a path or
// file name with the wildcards "*" and "?". Letter case is ignored.
struct selection_request {
    std::vector<wide_string> left_out = {}; // uuids in addition to the names; unknown ones are ignored
    std::vector<std::string> deselect;
    std::vector<std::string> only;
};

// Applies the request: leaves out each element named by `deselect` with its descendants, and if `only` has
// names, everything except those, their descendants and their parents; what both name is left out. Returns a
// message for each name that matches nothing, is ambiguous, or matches nothing that can be left out, and one
// if nothing is left. If a name is wrong, only the uuids of `left_out` have been applied. Each pattern is
// compared with all elements; other names are looked up.
std::vector<std::string> apply(const selection_request& request, const std::vector<element>& elements,
                               vs::project_resave::selection_register& selection);

} // namespace vestra::command
