// How a reference to a data file stands in a file of the host. What lies near the folder of that file is
// stored relative to the folder, so that both can be moved together; all else is stored as it is. Pure text,
// no disk. A folder here ends with its separator; "\" and "/" are both separators.
#pragma once

#include "reference_host/model/text.h"

namespace vestra::files {

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

} // namespace vestra::files
