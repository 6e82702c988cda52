// Layers of shape files, and layers that only refer to other elements. Main thread only.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

// Layers without files that name other elements of the project, which are added to the selection with them.
// Their references do not change.
//
// A 3D layer that shows a 2D scene of the project; its reference is the scene's uuid between "*".
class Tvs_resave_map_link_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    bool do_save() override;
};

// The lines of profiles: each record of the layer's table may name an element by its uuid.
class Tvs_resave_prf_lines_lr2d : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    bool do_save() override;
};

// A profile composed by a plug-in, which returns the members.
class Tvs_resave_prf_compound_lr2d : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    // Kept as users know it: makes no step of progress, although the unit counts as one.
    bool do_save() override { return true; }
};

// Shape layers: a shape file with index, projection and table, and the tables joined to that.
class Tvs_resave_shp_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Writes the fields below the layer's line if columns are requested; returns false in that case.
    bool write_structure() override;
    // Sets `out` to the files of the data set, or to the main file alone if the host cannot open it; then
    // appends the joined tables.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

    // True if the options ask for the columns of tables.
    virtual bool write_dbf_columns();
};

// A shape layer in a 2D scene, which also writes a layer file.
class Tvs_resave_shp_lr2d : public Tvs_resave_shp_lr {
public:
    using Tvs_resave_shp_lr::Tvs_resave_shp_lr;

    void after_file_saved() override;
    vs_attr_data* attr_data() override;
};

// A shape layer in a 3D scene, which also writes a layer file.
class Tvs_resave_shp_lr3d : public Tvs_resave_shp_lr {
public:
    using Tvs_resave_shp_lr::Tvs_resave_shp_lr;

    void after_file_saved() override;
    vs_attr_data* attr_data() override;
};

} // namespace vs::project_resave
