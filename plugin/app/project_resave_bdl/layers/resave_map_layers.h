// Map layers: behind the reference stands a scene file, whose scene is loaded, resaved with all its own
// layers, and written to a new scene file.
#pragma once

#include <memory>

#include "framework/border/host_owned.h"
#include "host/vsk_scn_2d.h"
#include "layers/resave_layer.h"

namespace vs::project_resave {

class Tvs_resave_scene_2d_map;

class Tvs_resave_map_lr : public Tvs_resave_layer {
public:
    Tvs_resave_map_lr(vs_lr* handle, run_state& run);
    ~Tvs_resave_map_lr() override;

    // The scene's own text follows at the same depth. No step of progress for the layer itself.
    bool write_structure() override;
    // The steps of the scene's layers. The layer's own is not counted, though a save makes it.
    uint32_t count_units(uint32_t& total) override;
    void collect_common_directory(common_directory& common) override;
    // Saves the scene's layers, then writes the scene file unless the run did so before. False also for a
    // scene that could not be loaded, which only the log tells.
    bool do_save() override;
    void build() override;
    // None: the scene file goes straight into the new folder.
    wide_string default_folder() override { return wide_string(); }
    // Writes the scene as its layers were saved.
    bool copy_files(const wide_string& source, const wide_string& target) override;

private:
    // The scene is none of the project's. Members go from the last to the first: scene, unit.
    std::unique_ptr<Tvs_resave_scene_2d_map> map_unit_; // null if the scene did not load
    host_owned<vs_scn_2d, &vs_scn_2d_destroy> map_scene_;
};

class Tvs_resave_map_lr2d : public Tvs_resave_map_lr {
public:
    using Tvs_resave_map_lr::Tvs_resave_map_lr;

    void after_file_saved() override;
};

class Tvs_resave_map_lr3d : public Tvs_resave_map_lr {
public:
    using Tvs_resave_map_lr::Tvs_resave_map_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
