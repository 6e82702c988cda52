// Map layers: the reference is a scene file, whose scene is loaded, resaved with all its layers, and written
// to a new scene file. Main thread only.
#pragma once

#include <memory>

#include "framework/border/host_owned.h"
#include "host/vsk_scn_2d.h"
#include "layers/resave_layer.h"

namespace vs::project_resave {

class Tvs_resave_scene_2d_map;

// The common part of 2D and 3D map layers.
class Tvs_resave_map_lr : public Tvs_resave_layer {
public:
    // The layer belongs to the scene.
    Tvs_resave_map_lr(vs_lr* handle, run_state& run);
    ~Tvs_resave_map_lr() override;

    // Writes the layer's line; the scene's own text follows at the same depth. Makes no step of progress for
    // the layer itself.
    bool write_structure() override;
    // Counts the steps of the scene's layers. Kept as users know it: the layer's own step is made by a save
    // but not counted.
    uint32_t count_units(uint32_t& total) override;
    void collect_common_directory(common_directory& common) override;
    // Saves the scene's layers, then writes the scene file unless the run has already done so. Also returns
    // false for a scene that could not be loaded, which is recorded as not read.
    bool do_save() override;
    // Loads the scene file and builds its unit. A file that cannot be loaded leaves the layer without one.
    void build() override;
    // Kept as users know it: there is no folder for this type, so the scene file goes directly into the new
    // folder.
    wide_string default_folder() override { return wide_string(); }
    // Writes the scene with its saved layers.
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    // The scene is not part of the project. Declared in this order, the unit is destroyed after the scene.
    std::unique_ptr<Tvs_resave_scene_2d_map> map_unit_; // null if the scene could not be loaded
    host_owned<vs_scn_2d, &vs_scn_2d_destroy> map_scene_;
};

// A map layer in a 2D scene that also writes a layer file.
class Tvs_resave_map_lr2d : public Tvs_resave_map_lr {
public:
    using Tvs_resave_map_lr::Tvs_resave_map_lr;

    void after_file_saved() override;
};

// A map layer in a 3D scene.
class Tvs_resave_map_lr3d : public Tvs_resave_map_lr {
public:
    using Tvs_resave_map_lr::Tvs_resave_map_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
