// Layers of grids and of seismic data, and layers on a grid cut along a line.
#pragma once

#include "layers/resave_tos_layers.h"

namespace vs::project_resave {

// Serves 2D grids and 3D seismic data alike: a file with its data set, or a folder. Writes no layer file.
class Tvs_resave_grid : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // By the extension alone, in small letters: seismic data or grid, whatever the layer is.
    wide_string default_folder() override;
    // False where the source has vanished, which is entered as a copy that failed.
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

// A TOS grid whose reference may be marked by a "*" in front; after a save it always is.
class Tvs_resave_grid_cutline : public Tvs_resave_tos_lr2d {
public:
    using Tvs_resave_tos_lr2d::Tvs_resave_tos_lr2d;

    // Without the mark.
    wide_string source_path() override;
    void set_new_path(const wide_string& path) override;
};

} // namespace vs::project_resave
