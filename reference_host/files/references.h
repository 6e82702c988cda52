#pragma once

#include <functional>
#include <string_view>

#include "reference_host/model/counted.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// How a reference to a data file stands in a file of the host. What lies near the folder of that file is
// stored relative to the folder, so that both can be moved together; all else is stored as it is. Pure text,
// no disk. A folder here ends with its separator; "\" and "/" are both separators.
// What is near: with `below`, what lies below the folder; with `beside`, also what has a folder in common
// with it, a drive or a share alone being none. A project stands above its data, a scene file may stand
// anywhere.
enum class nearness { below, beside };

// The stored form. Folders are compared without letter case. A reference that is no whole path, and so would
// be taken for a relative one, is stored behind a "=". With `behind_star`, a leading "*" is kept and what
// follows it is the reference; otherwise a text that begins with "*" is stored as it is.
wide_string stored_reference(wide_view folder, wide_view reference, bool behind_star = false,
                             nearness near = nearness::below);

// The inverse. A stored text is relative if it is not empty, has no ":" and begins with none of \ / * and =;
// it may begin with ".." or hold "." and "..", which are resolved.
wide_string resolved_reference(wide_view folder, wide_view stored, bool behind_star = false);

// All places where a project, a scene or a layer refers to something outside of its own file.
struct held_reference {
    std::string_view kind; // of the element: "scene", "layer", "table", "joined table", "model file", ...
    const entity* holder;  // the element that holds it; never null
    wide_view list; // caption of the scene or collection that holds the element; empty if there is none
    wide_view text; // as the element holds it; that of a model file is made whole
    bool is_scene = false; // if it is a path, a file of a 2D scene stands there, with references of its own
};

// Told in the order of the project, during the call; what is empty is passed over.
using reference_visitor = std::function<void(const held_reference&)>;

void visit_references(const project& all, const reference_visitor& visitor);
void visit_references(const layer& one, const reference_visitor& visitor);
// The kind is what the scene counts as, be it a layout, a sheet or a legend.
void visit_references(const scene& one, std::string_view kind, const reference_visitor& visitor);

// Gives a shape layer that has no table the file next to its own, if that is on the disk. Every layer that is
// read has its table so.
void take_table_beside(layer& shown);

// Returns what is to take the place of a reference, or an empty text to leave it.
using reference_change = std::function<wide_string(const held_reference&)>;

// Visits the same places in the same order. A model file is looked at from the place that its layer refers to
// by then, and takes the new reference as it is. A layer whose file changes takes the table beside the new
// one, unless it has a table.
void change_references(project& all, const reference_change& change);
void change_references(scene& one, const reference_change& change);

} // namespace vestra::files
