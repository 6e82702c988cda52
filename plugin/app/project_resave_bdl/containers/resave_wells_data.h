// Collections of well sheets and correlation sheets: 2D scenes that a plug-in makes from a file each.
#pragma once

#include "core/resave_list.h"
#include "layers/resave_wells.h"

namespace vs::project_resave {

class Tvs_resave_well_data final : public Tvs_resave_well {
public:
    // The sheet is the project's.
    Tvs_resave_well_data(vs_scn_2d* handle, run_state& run) : Tvs_resave_well(run), sheet_(handle) {}

    vs_entity* entity() override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string well_caption() override;

private:
    vs_scn_2d* const sheet_;
};

class Tvs_resave_wells_data final : public Tvs_resave_list {
public:
    // The collection is the project's; null stands for an empty one.
    Tvs_resave_wells_data(vs_scns_2d* handle, run_state& run) : Tvs_resave_list(run), sheets_(handle) {}

    // A sheet that an entity factory knows gets that factory's unit.
    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_2d* const sheets_;
};

} // namespace vs::project_resave
