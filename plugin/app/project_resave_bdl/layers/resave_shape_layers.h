// Layers over shape files and links.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

// Layers that have nothing to copy but name other elements of the project: with them those come into the
// selection. Their references are kept as they are.
// A 3D layer that shows a 2D scene of the project; its reference is the scene's uuid between "*".
class Tvs_resave_map_link_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    bool do_save() override;
};

// The lines of profiles: each record of its table may name an element.
class Tvs_resave_prf_lines_lr2d : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    bool do_save() override;
};

// A profile put together by a plug-in, which tells the members.
class Tvs_resave_prf_compound_lr2d : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    bool correct_selection() override;
    // Makes no step of progress, although the unit counts as one.
    bool do_save() override { return true; }
};

// Shape layers: a shape file with index, projection and table, and the tables joined to that.
class Tvs_resave_shp_lr : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    // Under the layer's line its fields, if columns are wanted; the answer is false then.
    bool write_structure() override;
    // The data set's files or, where the host cannot open it, the main file untested; then the joined tables.
    void collect_source_files(std::vector<found_file>& out) override;
    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;

    virtual bool write_dbf_columns();
};

class Tvs_resave_shp_lr2d : public Tvs_resave_shp_lr {
public:
    using Tvs_resave_shp_lr::Tvs_resave_shp_lr;

    void after_file_saved() override;
    vs_attr_data* attr_data() override;
};

class Tvs_resave_shp_lr3d : public Tvs_resave_shp_lr {
public:
    using Tvs_resave_shp_lr::Tvs_resave_shp_lr;

    void after_file_saved() override;
    vs_attr_data* attr_data() override;
};

} // namespace vs::project_resave
