// Finds the services by which all bundles take part, this one's own among them.
#pragma once

#include <vector>

#include "framework/border/ref.h"
#include "services/resave_entity_service.h"
#include "services/resave_service.h"

namespace vs::project_resave {

using resave_services = std::vector<ref<resave_service_impl>>;
using resave_entity_services = std::vector<ref<resave_entity_service_impl>>;

// Append each service that runs under "vestra/resave_project", in the order in which the host tells them. An
// entity service that is held already is not taken a second time.
void collect_resave_services(resave_services& found);
void collect_resave_entity_services(resave_entity_services& found);

} // namespace vs::project_resave
