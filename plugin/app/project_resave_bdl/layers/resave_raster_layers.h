// Layers of pictures and grids. Main thread only.
#pragma once

#include "layers/resave_layer.h"
#include "layers/resave_tos_layers.h"

namespace vs::project_resave {

// A layer of 2D grids or of 3D seismic data: a file with its data set, or a folder. Writes no layer file.
class Tvs_resave_grid : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Decides only by the extension, in lower case: seismic data or a grid, whatever the layer's type is.
    wide_string default_folder() override;
    // Returns false if the source no longer exists, which is recorded as a failed copy.
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

// A TOS grid whose reference may begin with a "*"; after a save it always does.
class Tvs_resave_grid_cutline : public Tvs_resave_tos_lr2d {
public:
    using Tvs_resave_tos_lr2d::Tvs_resave_tos_lr2d;

    // Returns the reference without the mark.
    wide_string source_path() override;
    // Adds the mark.
    void set_new_path(const wide_string& path) override;
};

// A raster: one file with a few companions.
class Tvs_resave_rtr_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    wide_string default_folder() override;
    // Also copies overviews, world files and the projection. Throws std::out_of_range, before copying the
    // projection, if the extension gives no name for a world file.
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

// A raster in a 2D scene, which also writes a layer file.
class Tvs_resave_rtr_lr2d : public Tvs_resave_rtr_lr {
public:
    using Tvs_resave_rtr_lr::Tvs_resave_rtr_lr;

    void after_file_saved() override;
};

// A tile layer: one file and its projection.
class Tvs_resave_tld_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Sets `out` to the main file, without checking that it exists, and its projection.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

// A tile layer in a 2D scene, which also writes a layer file.
class Tvs_resave_tld_lr2d : public Tvs_resave_tld_lr {
public:
    using Tvs_resave_tld_lr::Tvs_resave_tld_lr;

    void after_file_saved() override;
};

// A layer of a map service: it has no file, and its reference does not change.
class Tvs_resave_wms_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Kept as users know it: makes no step of progress, although the unit counts as one.
    bool do_save() override { return true; }
};

} // namespace vs::project_resave
