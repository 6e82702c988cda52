// The elements of a loaded project, as a person or a program is shown them.
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

struct element {
    std::string kind; // "collection", "scene", "group", "layer", "table", "joined table", ...
    wide_string type; // layer type or meta identifier; empty for a group and a joined table
    wide_string caption;
    wide_string uuid;            // empty for what has none
    wide_string file;            // the reference, as the element holds it
    std::optional<bool> exists;  // nothing for a reference that is no path
    uint64_t bytes = 0;          // of all its files; only where somebody set it
    bool selectable = false;     // can be left out of a resave
    vs_entity* entity = nullptr; // of the project, which owns it; null for what is no entity
    std::vector<element> children;
};

// All collections of the loaded project with what is in them, in the order of the project, and then the items
// that the services of the bundles keep in it.
std::vector<element> elements_of(vs::project_resave::project_context& context);
// Those items alone, under their headings.
std::vector<element> kept_by_services(vs::project_resave::project_context& context);
// The files that services tell of elements of the project.
std::vector<element> files_of_services(vs::project_resave::project_context& context);

// Enters the reference with what stands there.
void refer_to(element& shown, wide_string reference);
// The path that a reference holds, without a mark in front; nothing for one to a service or an element.
std::optional<wide_string> path_in(wide_view reference);

// Bytes of a file, or of all files in a folder.
uint64_t bytes_of(const wide_string& path);

} // namespace vestra::command
