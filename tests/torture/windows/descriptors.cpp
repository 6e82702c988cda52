#include "tests/torture/torture.h"

namespace vs::project_resave::torture {

open_descriptors descriptors() { return {}; } // the handles of a process include more than files

} // namespace vs::project_resave::torture
