// All paths that a project holds: of its layers, tables, joins, sheets, pages, legends and models, and those
// in the scene files that its map layers show.
#pragma once

#include <vector>

#include "reference_host/model/project.h"

namespace vs::project_resave {

struct reference {
    wide_string owner; // caption of the element
    wide_string path;  // whole, without a mark in front
};
std::vector<reference> references_of(const vestra::project& project);

} // namespace vs::project_resave
