// Finds the resave services of all bundles, this one's own among them.
#pragma once

#include <vector>

#include "framework/ref.h"
#include "services/resave_service.h"

namespace vs::project_resave {

using resave_services = std::vector<ref<resave_service_impl>>;

// Appends each service that runs under "vestra/resave_project", in the order in which the host tells them.
void collect_resave_services(resave_services& found);

} // namespace vs::project_resave
