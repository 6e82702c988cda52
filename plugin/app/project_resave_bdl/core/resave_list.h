// A unit of a container: owns its members' units, visits them in every operation and applies the selection.
// Main thread only.
#pragma once

#include <memory>
#include <vector>

#include "core/resave_unit.h"

namespace vs::project_resave {

class Tvs_resave_list : public Tvs_resave_unit {
public:
    using Tvs_resave_unit::Tvs_resave_unit;

    bool write_structure() override;
    bool write_scene_file() override { return true; }
    bool check_path_case(bool* found) override;
    uint32_t count_units(uint32_t& total) override;
    void skip_progress() override;
    void collect_common_directory(common_directory& common) override;
    bool correct_selection() override;
    vs_entity* entity() override;
    // Selects or leaves out the container and all its members.
    void set_selected(bool on) override;
    // Mixed if a member's state differs from the container's own.
    uint32_t selection_state() override;
    // Saves the members from the last to the first. Removes members that are not selected from the project
    // and, if the options say so, those that lost their source. Always returns true.
    bool do_save() override;

    // Called before the first member is saved.
    virtual void before_children() {}
    // Called for the structure text, for each selected index without a unit.
    virtual void on_missing_child(uint32_t) {}
    // Called after the last member was saved, and also after a stop.
    virtual void after_children() {}
    // Returns the host's container; null if there is none.
    virtual vs_entities* container() = 0;
    // Counts as selected: a null child, a child without an entity, and an entity that the register does not
    // know.
    virtual bool is_child_selected(uint32_t index);
    // Return the unit's own line in the structure text, and whether there are lines below it.
    virtual wide_string heading() = 0;
    virtual bool has_structure_content() = 0;
    // Removes the member from the host's container; the unit stays.
    virtual void remove_child(uint32_t index) = 0;
    // Returns the root of the tree of groups whose order the structure text follows, or null.
    virtual vs_lr_group* layer_group() { return nullptr; }

protected:
    // Stores a member's unit, which may be null, at its index and builds it at once.
    void place(uint32_t index, std::unique_ptr<Tvs_resave_unit> unit);

    // One entry for each member, in the host's order; null if nothing resaves the member.
    std::vector<std::unique_ptr<Tvs_resave_unit>> children;

private:
    // Saves one member, or removes it if it was left out. `list` is the caption of this container.
    void save_child(uint32_t index, const wide_string& list);
    // Writes the members in their order, for a container without groups.
    void write_children();
};

} // namespace vs::project_resave
