#include "tests/torture/torture.h"

namespace vs::project_resave::torture {

open_descriptors descriptors() { return {}; } // the handles of the process are not its files alone

} // namespace vs::project_resave::torture
