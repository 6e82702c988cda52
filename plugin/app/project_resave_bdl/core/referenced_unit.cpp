#include "core/referenced_unit.h"

#include "operations/project_context.h"

namespace vs::project_resave {

bool select_referenced(project_context& context, const wide_string& uuid) {
    Tvs_resave_unit** const found = context.units.find(uuid);
    if (found == nullptr || (*found)->selection_state() == 0) return false;
    if (!context.options.ask_add_referenced()) return false;
    (*found)->set_selected(true);
    return true;
}

} // namespace vs::project_resave
