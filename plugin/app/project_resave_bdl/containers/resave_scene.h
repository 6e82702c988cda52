// What units of 2D and 3D scenes do alike: while a scene is saved its files may go into a folder of its own.
#pragma once

#include "core/resave_list.h"
#include "operations/run/common_directory.h"

namespace vs::project_resave {

class Tvs_resave_scene : public Tvs_resave_list {
public:
    using Tvs_resave_list::Tvs_resave_list;

    // The layers count twice: for the run, and for the scene alone.
    void collect_common_directory(common_directory& common) override;
    void before_save() override;
    void after_save(bool ok) override;
    bool has_structure_content() override;

protected:
    common_directory scene_directory;

private:
    wide_string folder_name();
};

} // namespace vs::project_resave
