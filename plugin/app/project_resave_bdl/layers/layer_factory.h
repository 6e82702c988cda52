// Which unit resaves a layer? The entity factory is asked first, then the table of layer types of the scene's
// kind.
#pragma once

#include <memory>

#include "core/resave_unit.h"

namespace vs::project_resave {

// The unit of a layer in the scene of the caption `list`, not built yet; the caller places it and builds it
// at once. Null for a type that no unit knows, which goes into report and log, and, without a word, for a
// well while each scene has its own folder.
std::unique_ptr<Tvs_resave_unit> make_layer_unit_2d(run_state& context, vs_lr* layer,
                                                    const wide_string& list);
std::unique_ptr<Tvs_resave_unit> make_layer_unit_3d(run_state& context, vs_lr* layer,
                                                    const wide_string& list);

} // namespace vs::project_resave
