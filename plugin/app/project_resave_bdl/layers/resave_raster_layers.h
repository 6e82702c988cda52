// Raster, tile and map service layers: one file with a few companions, or none at all.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

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
