// The elements of a loaded project in the form shown to users and programs. All functions read the project
// through the host's C functions; main thread only.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "host/types.h"
#include "platform/wide_string.h"

namespace vs::project_resave {
class project_context;
}

namespace vestra::command {

using vs::project_resave::wide_string;
using vs::project_resave::wide_view;

// One node of the element tree. A copy of what the project has at the time: only `entity` points into it.
struct element {
    std::string kind; // "collection", "scene", "group", "layer", "table", "joined table", ...
    wide_string type; // layer type or meta identifier; empty for groups and joined tables
    wide_string caption;
    wide_string uuid;           // empty if it has none
    wide_string file;           // the reference as stored in the element
    std::optional<bool> exists; // no value if the reference is not a path
    // The bytes of all its files. 0 until family_sizes computes it.
    uint64_t bytes = 0;
    // True if it can be left out of a resave by itself.
    bool selectable = false;
    // Owned by the project, so valid until the next load or run. Null for a node that is not an entity: a
    // group, a joined table, a file or an item of a service.
    vs_entity* entity = nullptr;
    std::vector<element> children;
};

// Returns all collections of the loaded project with their contents, in the order of the project, followed by
// the items that services of bundles store in it. Requests the status of each referenced file. A project must
// be loaded; a run releases it.
std::vector<element> elements_of(vs::project_resave::project_context& context);
// Returns only those items, under their headings.
std::vector<element> kept_by_services(vs::project_resave::project_context& context);
// Returns the files that services report for elements of the project, each as an element of the kind "file"
// with the caption of its owner. Empty, without looking at the project, if no bundle has such a service.
std::vector<element> files_of_services(vs::project_resave::project_context& context);

// Sets the reference and whether it exists.
void refer_to(element& shown, wide_string reference);
// Returns the path in a reference without its leading mark "*"; nothing for a reference to a service or an
// element, and for a relative path.
std::optional<wide_string> path_in(wide_view reference);

// Returns the bytes of a file, or of all files in a folder; 0 if nothing exists there. Unlike family_sizes it
// asks the disk at every call.
uint64_t bytes_of(const wide_string& path);

} // namespace vestra::command
