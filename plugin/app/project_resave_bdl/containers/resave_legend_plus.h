// The content of a legend in a layout, which is a small scene. The files of all legends go to one folder for
// each type of data. Main thread only.
#pragma once

#include "core/resave_list.h"
#include "layers/resave_raster_layers.h"
#include "layers/resave_shape_layers.h"
#include "layers/resave_tos_layers.h"

namespace vs::project_resave {

// The scene of one legend, with a unit for each of its layers. A layer that is left out stays in the legend,
// with its old reference.
class Tvs_resave_legend_plus final : public Tvs_resave_list {
public:
    // The scene belongs to the legend layer. `layout` is the caption of the layout.
    Tvs_resave_legend_plus(vs_scn_2d* handle, wide_string layout, run_state& run)
        : Tvs_resave_list(run), scene_(handle), layout_caption_(std::move(layout)) {}

    // Builds units for fewer types of layers than a scene does; other types are reported.
    void build() override;
    vs_entities* container() override;
    wide_string heading() override;
    // True if the options ask for the content of legends; the heading is written in any case.
    bool has_structure_content() override;
    // Removes nothing: a legend keeps its layers.
    void remove_child(uint32_t) override {}

private:
    // Returns the unit of a layer; null for a type that legends do not support, which is reported and whose
    // file is protected.
    std::unique_ptr<Tvs_resave_unit> make_unit(vs_lr* layer);

    vs_scn_2d* const scene_;
    const wide_string layout_caption_;
};

// Returns the name of the folder for the files of legends. Neither argument affects it.
wide_string legend_folder_for(const wide_string& first, const wide_string& second);

// A layer in a legend: it differs from its base only in the folder.
template <class Base>
class Tvs_resave_legend_layer : public Base {
public:
    // The layer belongs to the legend's scene; the captions are those of its layout and legend.
    Tvs_resave_legend_layer(vs_lr* handle, const wide_string& layout, const wide_string& legend,
                            run_state& run)
        : Base(handle, run), legend_folder_(legend_folder_for(layout, legend)) {}

    // The folder for legends instead of the one for the type of data.
    wide_string default_folder() override { return legend_folder_; }

private:
    const wide_string legend_folder_;
};

// A shape layer in a legend. Its columns have a separate option.
class Tvs_resave_shp_2d_legend_plus final : public Tvs_resave_legend_layer<Tvs_resave_shp_lr2d> {
public:
    using Tvs_resave_legend_layer::Tvs_resave_legend_layer;
    // Asks the option for legends instead of the one for tables.
    bool write_dbf_columns() override;
};
// The other kinds of layers in legends: rasters, TOS files and tiles.
using Tvs_resave_rtr_legend_plus = Tvs_resave_legend_layer<Tvs_resave_rtr_lr>;
using Tvs_resave_tos_legend_plus = Tvs_resave_legend_layer<Tvs_resave_tos_lr>;
using Tvs_resave_tld_legend_plus = Tvs_resave_legend_layer<Tvs_resave_tld_lr>;

} // namespace vs::project_resave
