// Chooses the unit that resaves a layer: asks the entity factory first, then the table of layer types for the
// kind of scene. Main thread only.
#pragma once

#include <memory>

#include "core/resave_unit.h"

namespace vs::project_resave {

// Return the unit of a layer in the scene with the caption `list`. It is not built yet; the caller stores it
// and builds it at once. Return null for a type that no unit supports, which is recorded in the report and
// the log, and, without a record, for a well if each scene has its own folder.
std::unique_ptr<Tvs_resave_unit> make_layer_unit_2d(run_state& context, vs_lr* layer,
                                                    const wide_string& list);
std::unique_ptr<Tvs_resave_unit> make_layer_unit_3d(run_state& context, vs_lr* layer,
                                                    const wide_string& list);

} // namespace vs::project_resave
