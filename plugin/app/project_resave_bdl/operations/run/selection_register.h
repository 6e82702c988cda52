// Which elements the user has left out, by the text of their uuid. What it never heard of is selected.
#pragma once

#include <unordered_set>

#include "platform/wide_string.h"

namespace vs::project_resave {

class size_register;

class selection_register {
public:
    // `told` learns of every change; not owned.
    explicit selection_register(size_register* told) : sizes(told) {}

    bool is_selected(const wide_string& uuid) const { return !deselected.contains(uuid); }
    // An empty uuid changes nothing.
    void set_selected(const wide_string& uuid, bool selected);
    // Everything is selected again; the sizes are not told.
    void clear() { deselected.clear(); }

private:
    size_register* sizes;
    std::unordered_set<wide_string> deselected;
};

} // namespace vs::project_resave
