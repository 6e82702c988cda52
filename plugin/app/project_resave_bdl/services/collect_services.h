// Finds the services by which all bundles take part in a resave, this one's own among them. Main thread only.
#pragma once

#include <vector>

#include "framework/border/ref.h"
#include "services/resave_entity_service.h"
#include "services/resave_service.h"

namespace vs::project_resave {

using resave_services = std::vector<ref<resave_service_impl>>;
using resave_entity_services = std::vector<ref<resave_entity_service_impl>>;

// Append a ref to each service that is registered under "vestra/resave_project" or under no id, in the order
// in which the host finds them; services that do not run yet are started. An entity service that is in the
// list already is not appended a second time.
void collect_resave_services(resave_services& found);
void collect_resave_entity_services(resave_entity_services& found);

} // namespace vs::project_resave
