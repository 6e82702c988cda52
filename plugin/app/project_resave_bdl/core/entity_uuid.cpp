#include "core/entity_uuid.h"

#include "framework/border/string_adapter.h"
#include "framework/resources/strings.h"
#include "host/vsk_entity.h"

namespace vs::project_resave {

wide_string uuid_to_text(const vs_uuid* uuid) {
    return uuid && vs_uuid_has_value(uuid) ? host_string(&vs_uuid_to_string, uuid) : wide_string();
}

vs_uuid* entity_uuid(vs_entity* entity) {
    vs_uuid* uuid = entity ? vs_entity_get_uuid(entity) : nullptr;
    if (uuid && vs_uuid_has_value(uuid)) return uuid;
    show_error(text::selection_error);
    return nullptr;
}

bool entity_has_uuid(vs_entity* entity) { return entity_uuid(entity) != nullptr; }

wide_string entity_uuid_text(vs_entity* entity) { return uuid_to_text(entity_uuid(entity)); }

element_name element_name_of(vs_entity* entity, const wide_string& list) {
    if (!entity) return {{}, {}, list};
    return {uuid_to_text(vs_entity_get_uuid(entity)), host_string(&vs_entity_get_wcaption, entity), list};
}

} // namespace vs::project_resave
