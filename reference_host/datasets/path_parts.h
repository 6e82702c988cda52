// The pieces of a path that make a family of files: a.tif in C:\x is head "C:\x\", stem "a", extension
// ".tif".
#pragma once

#include "reference_host/model/text.h"

namespace vestra::datasets {

struct path_parts {
    wide_string head;      // up to and including the last separator; empty without one
    wide_string stem;      // without the extension
    wide_string extension; // from the last dot of the name on; empty without one
};

inline path_parts parts_of(wide_view path) {
    const wide_view head = path.substr(0, path.find_last_of(u"\\/") + 1);
    const wide_view name = path.substr(head.size());
    const wide_view stem = name.substr(0, name.rfind(u'.'));
    return {wide_string(head), wide_string(stem), wide_string(name.substr(stem.size()))};
}

} // namespace vestra::datasets
