// Wells: a file whose data may be in a folder with the same stem next to it. Main thread only.
#pragma once

#include "core/resave_file.h"

namespace vs::project_resave {

// Base of all units of wells, in a layer or in a collection.
class Tvs_resave_well : public Tvs_resave_file {
public:
    using Tvs_resave_file::Tvs_resave_file;

    // Writes the caption; makes no step of progress.
    bool write_structure() override;
    // Sets `out` to the file and the folder, if they exist.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

    // Returns the caption for the structure text.
    virtual wide_string well_caption() = 0;
};

// A well in a scene.
class Tvs_resave_well_lr : public Tvs_resave_well {
public:
    // The layer belongs to the scene.
    Tvs_resave_well_lr(vs_lr* handle, run_state& run) : Tvs_resave_well(run), layer(handle) {}

    vs_entity* entity() override;
    // With a folder for each scene nothing is saved: the layer still refers to the old file, which therefore
    // is not included in the common directory.
    bool do_save() override;
    void collect_common_directory(common_directory& common) override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string well_caption() override;

protected:
    vs_lr* const layer;
};

// A well in a 2D scene, which also writes a layer file.
class Tvs_resave_well_lr2d : public Tvs_resave_well_lr {
public:
    using Tvs_resave_well_lr::Tvs_resave_well_lr;

    void after_file_saved() override;
};

// A well in a 3D scene, which also writes a layer file.
class Tvs_resave_well_lr3d : public Tvs_resave_well_lr {
public:
    using Tvs_resave_well_lr::Tvs_resave_well_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
