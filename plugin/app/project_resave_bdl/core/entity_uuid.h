// The key of an element in every register: its uuid as text.
#pragma once

#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// An element without a uuid, or none at all, shows the error box "Error select"; the answer is then false,
// null or empty, and the caller goes on.
bool entity_has_uuid(vs_entity* entity);
vs_uuid* entity_uuid(vs_entity* entity);
wide_string entity_uuid_text(vs_entity* entity);

// Text of a uuid, empty if it has no value; silent.
wide_string uuid_to_text(const vs_uuid* uuid);
// Name in the report of an element that the list of this caption holds; silent.
element_name element_name_of(vs_entity* entity, const wide_string& list);

} // namespace vs::project_resave
