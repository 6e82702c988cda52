#include "host/vsk_entity.h"

#include "reference_host/api/calls.h"

using namespace vestra::api;

vs_uuid* vs_entity_get_uuid(vs_entity* entity) {
    return on(entity, [](auto& element) { return to_handle<vs_uuid>(&element.id); });
}

void vs_entity_get_wcaption(vs_entity* entity, vs_string_adp* out) {
    tell(out, entity, &vestra::entity::caption);
}

const char* vs_entity_get_meta_id(vs_entity* entity) {
    return entity ? to_model(entity)->meta_id.c_str() : "";
}

vs_entity* vs_entity_get_parent(vs_entity* entity) {
    return on(entity, [](auto& element) { return to_handle<vs_entity>(element.parent.get()); });
}

uint32_t vs_entity_is_valid(vs_entity* entity) {
    return on(entity, [](auto& element) { return static_cast<uint32_t>(element.validity); });
}

vs_entity* vs_entities_safe_upcast(vs_entities* container) {
    return to_handle<vs_entity>(to_model(container));
}

vs_entities* vs_entities_safe_downcast(vs_entity* entity) {
    return to_handle<vs_entities>(dynamic_cast<vestra::entity_list*>(to_model(entity)));
}

uint32_t vs_entities_get_count(vs_entities* container) { return count_of(container); }

vs_entity* vs_entities_get_entity(vs_entities* container, uint32_t index) {
    return member_of<vs_entity>(container, index);
}

void vs_entities_clear(vs_entities* container) {
    on(container, [](auto& list) { list.clear(); });
}
