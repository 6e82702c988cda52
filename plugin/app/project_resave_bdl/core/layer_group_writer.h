// The uuids of elements, and the layers of a scene in the structure text. The key of an element in every
// register is its uuid as text. Main thread only.
#pragma once

#include <memory>
#include <unordered_map>
#include <vector>

#include "core/resave_unit.h"
#include "host/types.h"
#include "operations/run/run_report.h"
#include "platform/wide_string.h"

namespace vs::project_resave {

// For an element without a uuid, or a null element, these show the error box "Error select" and return false,
// null or an empty text; the caller continues. `entity_has_uuid` is kept for other bundles; nothing here
// calls it.
bool entity_has_uuid(vs_entity* entity);
vs_uuid* entity_uuid(vs_entity* entity);
wide_string entity_uuid_text(vs_entity* entity);

// Returns the text of a uuid, empty if it has no value. Shows nothing.
wide_string uuid_to_text(const vs_uuid* uuid);
// Returns the element's name in the report, as a member of the list with this caption. Shows nothing.
element_name element_name_of(vs_entity* entity, const wide_string& list);

// Writes the layers of a scene into the text of a project's structure, in the order and depth of the scene's
// groups. Used for one walk: it looks each unit's uuid up once.
class layer_group_writer {
public:
    // `units` are those of the scene's layers; they must outlive this object.
    layer_group_writer(run_state& run, const std::vector<std::unique_ptr<Tvs_resave_unit>>& units);

    // Writes the content of the group until the user stops the run. A layer that is not selected or has no
    // unit has no line, nor has a group without a selected layer.
    void write(vs_lr_group* group);

private:
    // Writes the line of one layer, if it is selected and has a unit.
    void write_layer(vs_lr* layer);
    // Writes a group's line and its content, if a layer in it is selected.
    void write_subgroup(vs_lr_group* group);
    // True if a layer in the group is selected, at any depth.
    bool has_selected_layer(vs_lr_group* group);

    run_state& context_;
    std::unordered_map<wide_string, Tvs_resave_unit*> unit_of_; // the first unit with each uuid
    // Results of has_selected_layer(), which are needed once for each level above.
    std::unordered_map<vs_lr_group*, bool> holds_selected_;
};

} // namespace vs::project_resave
