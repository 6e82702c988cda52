// Host library vsk_entity: the properties of every element of a project, and containers of elements.
// Implemented by the host, called by bundles on the main thread. host/types.h has the rules on null handles,
// ownership, texts and indexes. Every entity belongs to its container, and so to the project.
#pragma once

#include "host/types.h"

extern "C" {

// Returns the entity's own uuid, which may have no value; null only for a null entity. Must not be destroyed.
vs_uuid* vs_entity_get_uuid(vs_entity* entity);
// Passes the caption, as shown to the user.
void vs_entity_get_wcaption(vs_entity* entity, vs_string_adp* out);
// Returns the meta identifier, which names the kind of the entity, as narrow text. Never null: empty for a
// null entity. Valid as long as the entity.
const char* vs_entity_get_meta_id(vs_entity* entity);
// Returns the entity above this one in the project; null if there is none, or it was removed.
vs_entity* vs_entity_get_parent(vs_entity* entity);
// Returns a vs_three_state: 0 valid, 1 invalid, 2 mixed.
uint32_t vs_entity_is_valid(vs_entity* entity);

// Returns the same container as an entity.
vs_entity* vs_entities_safe_upcast(vs_entities* container);
// Returns the entity as a container; null if it is not one.
vs_entities* vs_entities_safe_downcast(vs_entity* entity);
// Returns the number of members.
uint32_t vs_entities_get_count(vs_entities* container);
// Returns a member, which belongs to the container; null at and beyond the count.
vs_entity* vs_entities_get_entity(vs_entities* container, uint32_t index);
// Destroys all members. Handles to them and to what they contain become invalid.
void vs_entities_clear(vs_entities* container);
}
