// Common base of the units of 2D and 3D layers: sees to it that the files of its layer stand in the new place
// and that the layer refers to them there.
#pragma once

#include "core/resave_file.h"

namespace vs::project_resave {

class Tvs_resave_layer : public Tvs_resave_file {
public:
    // The layer is the scene's.
    Tvs_resave_layer(vs_lr* handle, run_state& run) : Tvs_resave_file(run), layer(handle) {}

    // One line: the caption and, if wanted, the reference as the layer holds it.
    bool write_structure() override;
    vs_entity* entity() override;
    // The layer's reference, exactly as it holds it.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
    wide_string default_folder() override;
    // A kind of layer that tells nothing of its files: only the log is told of it.
    bool copy_files(const wide_string& source, const wide_string& target) override;

protected:
    vs_lr* const layer;
};

} // namespace vs::project_resave
