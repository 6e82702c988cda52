// Layers over pictures and grids.
#pragma once

#include "layers/resave_layer.h"
#include "layers/resave_tos_layers.h"

namespace vs::project_resave {

// Layers of grids and of seismic data, and layers on a grid cut along a line.
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

// Raster, tile and map service layers: one file with a few companions, or none at all.
class Tvs_resave_rtr_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    wide_string default_folder() override;
    // With overviews, world files and projection. Throws std::out_of_range, before the projection, for a
    // main file from whose extension no world file's can be made.
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

class Tvs_resave_rtr_lr2d : public Tvs_resave_rtr_lr {
public:
    using Tvs_resave_rtr_lr::Tvs_resave_rtr_lr;

    void after_file_saved() override;
};

class Tvs_resave_tld_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // The main file, untested, and its projection.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

class Tvs_resave_tld_lr2d : public Tvs_resave_tld_lr {
public:
    using Tvs_resave_tld_lr::Tvs_resave_tld_lr;

    void after_file_saved() override;
};

// Layer of a map service: it has no file, and its reference is kept.
class Tvs_resave_wms_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Makes no step of progress, although the unit counts as one.
    bool do_save() override { return true; }
};

} // namespace vs::project_resave
