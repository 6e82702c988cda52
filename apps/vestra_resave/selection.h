// Which elements a person names on the command line, and what that means for the selection.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/elements.h"
#include "operations/run/registers.h"

namespace vestra::command {

struct selection_request {
    std::vector<std::string> deselect; // each a uuid or a caption
    std::vector<std::string> only;
};

// Leaves out what is not wanted: each element named by `deselect` with all below it; and if `only` names any,
// everything but those, what is below them and what they are in. Answers a line for each name that fits
// nothing, or more than one element, with the candidates; nothing is changed then.
std::vector<std::string> apply(const selection_request& request, const std::vector<element>& elements,
                               vs::project_resave::selection_register& selection);

} // namespace vestra::command
