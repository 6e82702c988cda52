// 2D scenes: those of the project, and those read from the scene file of a map layer.
#pragma once

#include "containers/resave_scene.h"

namespace vs::project_resave {

class Tvs_resave_scene_2d : public Tvs_resave_scene {
public:
    // The scene is the project's, or the map layer's.
    Tvs_resave_scene_2d(vs_scn_2d* handle, project_context& run) : Tvs_resave_scene(run), scene(handle) {}

    // Writes the whole scene to "caption._sn" below the new project's path, whatever is selected in it.
    bool write_scene_file() override;
    void build() override;
    // Cleans up groups that an unselected layer left empty, and writes the scene's file if the options say
    // so.
    void after_children() override;
    vs_entities* container() override;
    bool is_child_selected(uint32_t index) override;
    wide_string heading() override;
    void remove_child(uint32_t index) override;
    vs_lr_group* layer_group() override;

private:
    void write_to(const wide_string& path);

    vs_scn_2d* const scene;
    bool had_unselected_layer = false; // stays set for the life of the unit
};

// A scene that a map layer shows is saved where the map layer is: it has no folder and no file of its own.
class Tvs_resave_scene_2d_map final : public Tvs_resave_scene_2d {
public:
    using Tvs_resave_scene_2d::Tvs_resave_scene_2d;

    // NOLINTBEGIN(bugprone-parent-virtual-call): past the scene's own, which would enter a scene
    void before_save() override { Tvs_resave_unit::before_save(); }
    void after_save(bool ok) override { Tvs_resave_unit::after_save(ok); }
    // NOLINTEND(bugprone-parent-virtual-call)
    void after_children() override {}
};

} // namespace vs::project_resave
