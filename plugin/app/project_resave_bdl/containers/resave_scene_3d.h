// 3D scenes of the project.
#pragma once

#include "containers/resave_scene.h"

namespace vs::project_resave {

class Tvs_resave_scene_3d final : public Tvs_resave_scene {
public:
    // The scene is the project's.
    Tvs_resave_scene_3d(vs_scn_3d* handle, project_context& run) : Tvs_resave_scene(run), scene(handle) {}

    void build() override;
    // Writes the scene's file if the options say so.
    void after_children() override;
    vs_entities* container() override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    vs_scn_3d* const scene;
};

} // namespace vs::project_resave
