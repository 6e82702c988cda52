// All paths that a project holds: of its layers, tables, joins, sheets, pages, legends and models, and those
// in the scene files that its map layers show.
#pragma once

#include <string>
#include <vector>

#include "reference_host/model/project.h"

namespace vs::project_resave {

struct reference {
    wide_string owner; // caption of the element
    wide_string path;  // whole, without a mark in front
};
std::vector<reference> references_of(const vestra::project& project);

// A line for each scene with what is in it, for each sheet, and for each table:
//
//     Area: Roads=shp\roads.shp+shp\roads.dbf Relief=rtr\r.tif [a group]
//     Owners=dbf\owners.dbf>dbf\joined.dbf
//
// `folder` is left out where a path begins with it.
std::string outline_of(const vestra::project& project, wide_view folder = {});

} // namespace vs::project_resave
