#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "core/resave_unit.h"
#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// The key of an element in every register: its uuid as text.

// An element without a uuid, or none at all, shows the error box "Error select"; the answer is then false,
// null or empty, and the caller goes on.
// Kept for other bundles; nothing here calls it.
bool entity_has_uuid(vs_entity* entity);
vs_uuid* entity_uuid(vs_entity* entity);
wide_string entity_uuid_text(vs_entity* entity);

// Text of a uuid, empty if it has no value; silent.
wide_string uuid_to_text(const vs_uuid* uuid);
// Name in the report of an element that the list of this caption holds; silent.
element_name element_name_of(vs_entity* entity, const wide_string& list);

// The layers of a scene in the text of a project's structure, in the order and depth of the scene's groups.
// Made for one walk: it looks each unit's uuid up once.
class layer_group_writer {
public:
    layer_group_writer(run_state& run, const std::vector<std::unique_ptr<Tvs_resave_unit>>& units);

    // Writes what is below the group until the user stops the run. A layer that is not selected, and one
    // without a unit, has no line; a group without a selected layer has none either.
    void write(vs_lr_group* group);

private:
    void write_layer(vs_lr* layer);
    void write_subgroup(vs_lr_group* group);
    bool has_selected_layer(vs_lr_group* group);

    run_state& context_;
    std::unordered_map<wide_string, Tvs_resave_unit*> unit_of_; // the first unit of a uuid, or of none
    std::unordered_map<vs_lr_group*, bool> holds_selected_;
};

} // namespace vs::project_resave
