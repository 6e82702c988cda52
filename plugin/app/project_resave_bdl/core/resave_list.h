// A unit of a container: owns its members' units, walks them in every operation and applies the selection.
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
    void set_selected(bool on) override;
    uint32_t selection_state() override;
    // Saves the members from the last to the first. What is not selected leaves the project, and so does what
    // lost its source if the options say so. Always true.
    bool do_save() override;

    virtual void before_children() {}
    // For the structure's text: a selected place, by its index, without a unit.
    virtual void on_missing_child(uint32_t) {}
    virtual void after_children() {} // after a stop, too
    virtual vs_entities* container() = 0;
    // A place without a unit, a unit without an element and an element never heard of are selected.
    virtual bool is_child_selected(uint32_t index);
    // The unit's own line in the structure's text, and whether anything stands below it.
    virtual wide_string heading() = 0;
    virtual bool has_structure_content() = 0;
    // Takes the member out of the host's container; the unit stays.
    virtual void remove_child(uint32_t index) = 0;
    // Root of the tree of groups whose order the structure's text follows, or null.
    virtual vs_lr_group* layer_group() { return nullptr; }

protected:
    // Puts a member's unit, or none, at its place and builds it at once.
    void place(uint32_t index, std::unique_ptr<Tvs_resave_unit> unit);

    // One place for each member, in the host's order; null where nothing resaves the member.
    std::vector<std::unique_ptr<Tvs_resave_unit>> children;

private:
    void save_child(uint32_t index, const wide_string& list);
    void write_children();
};

} // namespace vs::project_resave
