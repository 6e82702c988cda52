// Host library vsk_entity: what every element of a project has, and containers of elements.
#pragma once

#include "host/types.h"

extern "C" {

// The entity's own uuid, not owned; null for a null entity.
vs_uuid* vs_entity_get_uuid(vs_entity* entity);
void vs_entity_get_wcaption(vs_entity* entity, vs_string_adp* out);
// Narrow meta identifier, never null; lives as long as the entity.
const char* vs_entity_get_meta_id(vs_entity* entity);
vs_entity* vs_entity_get_parent(vs_entity* entity);
// Three-state: 1 is invalid.
uint32_t vs_entity_is_valid(vs_entity* entity);

vs_entity* vs_entities_safe_upcast(vs_entities* container);
// The container that the entity is, or null.
vs_entities* vs_entities_safe_downcast(vs_entity* entity);
uint32_t vs_entities_get_count(vs_entities* container);
vs_entity* vs_entities_get_entity(vs_entities* container, uint32_t index);
// Destroys all that is in the container.
void vs_entities_clear(vs_entities* container);
}
