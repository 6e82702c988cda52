// All paths in a project and in the scene files that its map layers show.
#pragma once

#include <string>
#include <vector>

#include "platform/path_text.h"
#include "reference_host/files/files.h"
#include "reference_host/files/references.h"

namespace vs::project_resave {

struct reference {
    wide_string owner; // caption of the element
    wide_string path;  // absolute, without a leading mark
};

inline std::vector<reference> references_of(const vestra::project& project) {
    std::vector<reference> found;
    const vestra::files::reference_visitor add = [&](const vestra::files::held_reference& held) {
        const wide_string path(held.text.starts_with(u'*') ? held.text.substr(1) : held.text);
        if (path_root(path).empty() && !path.starts_with(u"\\")) return; // refers to a service or an element
        found.push_back({wide_string(held.holder->caption), path});
        vestra::scene shown(vestra::dimension::flat);
        if (held.is_scene && !vestra::files::read_scene(path, shown))
            vestra::files::visit_references(shown, "scene", add);
    };
    vestra::files::visit_references(project, add);
    return found;
}

} // namespace vs::project_resave
