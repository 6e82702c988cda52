// The collections of scenes: the first two roots of the tree. A collection never leaves a place empty.
#pragma once

#include "core/resave_list.h"

namespace vs::project_resave {

class Tvs_resave_scenes_2d final : public Tvs_resave_list {
public:
    // The collection is the project's.
    Tvs_resave_scenes_2d(vs_scns_2d* handle, project_context& run) : Tvs_resave_list(run), scenes(handle) {}

    // Writes the file of each selected scene until the user stops the run.
    bool write_scene_file() override;
    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_2d* const scenes;
};

class Tvs_resave_scenes_3d final : public Tvs_resave_list {
public:
    Tvs_resave_scenes_3d(vs_scns_3d* handle, project_context& run) : Tvs_resave_list(run), scenes(handle) {}

    void build() override;
    void before_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override { return true; }
    void remove_child(uint32_t index) override;

private:
    vs_scns_3d* const scenes;
};

} // namespace vs::project_resave
