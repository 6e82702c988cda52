// Wells: a file whose data may lie in a folder of the same stem beside it.
#pragma once

#include "core/resave_file.h"

namespace vs::project_resave {

// Base of all units of wells, whether a layer shows them or a collection holds them.
class Tvs_resave_well : public Tvs_resave_file {
public:
    using Tvs_resave_file::Tvs_resave_file;

    // Makes no step of progress.
    bool write_structure() override;
    // The file and the folder, as far as they exist.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

    virtual wide_string well_caption() = 0;
};

class Tvs_resave_well_lr : public Tvs_resave_well {
public:
    // The layer is the scene's.
    Tvs_resave_well_lr(vs_lr* handle, run_state& run) : Tvs_resave_well(run), layer(handle) {}

    vs_entity* entity() override;
    // With a folder for each scene nothing is saved: the layer keeps naming the old file, which therefore
    // does not count in the common directory either.
    bool do_save() override;
    void collect_common_directory(common_directory& common) override;
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string well_caption() override;

protected:
    vs_lr* const layer;
};

class Tvs_resave_well_lr2d : public Tvs_resave_well_lr {
public:
    using Tvs_resave_well_lr::Tvs_resave_well_lr;

    void after_file_saved() override;
};

class Tvs_resave_well_lr3d : public Tvs_resave_well_lr {
public:
    using Tvs_resave_well_lr::Tvs_resave_well_lr;

    void after_file_saved() override;
};

} // namespace vs::project_resave
