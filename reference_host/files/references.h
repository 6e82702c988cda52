#pragma once

#include <functional>
#include <string_view>

#include "reference_host/model/counted.h"
#include "reference_host/model/project.h"

namespace vestra::files {

// How a reference to a data file is stored in a file of the host. A path near the folder of that file is
// stored relative to it, so that both can be moved together; any other path is stored as it is. These
// functions work on text only and do not access the disk. A folder here ends with its separator; "\" and "/"
// are both separators.
//
// With `below`, only paths below the folder are near; with `beside`, also paths that share a folder with it,
// not counting a drive or share alone. Project files use `below`, because a project is above its data; a
// scene file can be anywhere.
enum class nearness { below, beside };

// Returns the stored form. Folders are compared without regard to letter case. A reference that is not a full
// path and would look like a relative one is stored after a "=". With `behind_star`, a leading "*" is kept
// and the reference is the text after it; otherwise a text beginning with "*" is stored as it is.
wide_string stored_reference(wide_view folder, wide_view reference, bool behind_star = false,
                             nearness near = nearness::below);

// The inverse. A stored text is relative if it is not empty, contains no ":" and does not begin with \ / * or
// =. It may begin with ".." or contain "." and "..", which are resolved.
wide_string resolved_reference(wide_view folder, wide_view stored, bool behind_star = false);

// Every reference of a project, a scene or a layer to something outside its own file.
struct held_reference {
    std::string_view kind; // of the element: "scene", "layer", "table", "joined table", "model file", ...
    const entity* holder;  // the element that holds it; never null
    wide_view list;        // caption of the scene or collection that holds the element; may be empty
    wide_view text;        // as the element holds it; made absolute for a model file
    bool is_scene = false; // if `text` is a path, it is a 2D scene file, which has references of its own
};

// Called once for each reference that is not empty, in the order of the project.
using reference_visitor = std::function<void(const held_reference&)>;

// Calls `visitor` for each reference of the object; changes nothing.
void visit_references(const project& all, const reference_visitor& visitor);
void visit_references(const layer& one, const reference_visitor& visitor);
// `kind` is what the project uses the scene as, such as a layout, a sheet or a legend.
void visit_references(const scene& one, std::string_view kind, const reference_visitor& visitor);

// Gives a shape layer without a table the .dbf file next to its own, if that exists on the disk. The reader
// does this for every layer.
void take_table_beside(layer& shown);

// Returns the new reference, or an empty text to keep the old one.
using reference_change = std::function<wide_string(const held_reference&)>;

// Visits the same references in the same order. A model file is resolved against the layer's new file and set
// to the new reference as it is. A layer whose file changes takes the table next to the new file, unless it
// has a table already.
void change_references(project& all, const reference_change& change);
void change_references(scene& one, const reference_change& change);

} // namespace vestra::files
