// Which elements a person names on the command line, and what that means for the selection.
#pragma once

#include <string>
#include <vector>

#include "apps/vestra_resave/elements.h"
#include "operations/run/registers.h"

namespace vestra::command {

// Each name is the uuid or the caption of one element, or else means all elements that fit: "type:" with a
// layer type, "group:" with the caption of a group, "missing" for a file that does not exist, or a path or
// file name in which "*" and "?" stand for any characters and for one. Letter case does not count.
struct selection_request {
    std::vector<wide_string> left_out =
        {}; // uuids beside these names; one that no element has is passed over
    std::vector<std::string> deselect;
    std::vector<std::string> only;
};

// Leaves out what is not wanted: each element named by `deselect` with all below it; and if `only` names any,
// everything but those, what is below them and what they are in. Returns a line for each name that fits
// nothing, more than one element, or nothing that can be left out; and one if nothing is left. Nothing is
// changed for a wrong name.
std::vector<std::string> apply(const selection_request& request, const std::vector<element>& elements,
                               vs::project_resave::selection_register& selection);

} // namespace vestra::command
