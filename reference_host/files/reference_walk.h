// All places where a project, a scene or a layer refers to something outside of its own file.
#pragma once

#include <functional>
#include <string_view>

#include "reference_host/model/project.h"

namespace vestra::files {

struct held_reference {
    std::string_view kind; // of the element: "scene", "layer", "table", "joined table", "model file", ...
    wide_view caption;     // of the element that holds it
    wide_view text;        // as the element holds it; that of a model file is made whole
    bool is_scene = false; // if it is a path, a file of a 2D scene stands there, with references of its own
};

// Told in the order of the project, during the call; what is empty is passed over.
using reference_visitor = std::function<void(const held_reference&)>;

void visit_references(const project& all, const reference_visitor& visitor);
void visit_references(const layer& one, const reference_visitor& visitor);
// The kind is what the scene counts as, be it a layout, a sheet or a legend.
void visit_references(const scene& one, std::string_view kind, const reference_visitor& visitor);

} // namespace vestra::files
