// A legend of a layout: a small scene of its own. The files of all legends share one folder by type.
#pragma once

#include "core/resave_list.h"
#include "layers/resave_raster_layers.h"
#include "layers/resave_shape_layers.h"
#include "layers/resave_tos_layers.h"

namespace vs::project_resave {

class Tvs_resave_legend_plus final : public Tvs_resave_list {
public:
    // The scene is the legend layer's.
    Tvs_resave_legend_plus(vs_scn_2d* handle, wide_string layout, run_state& run)
        : Tvs_resave_list(run), scene_(handle), layout_caption_(std::move(layout)) {}

    // Knows fewer kinds of layers than a scene; others are reported.
    void build() override;
    vs_entities* container() override;
    wide_string heading() override;
    bool has_structure_content() override;
    // A legend keeps its layers.
    void remove_child(uint32_t) override {}

private:
    std::unique_ptr<Tvs_resave_unit> make_unit(vs_lr* layer);

    vs_scn_2d* const scene_;
    const wide_string layout_caption_;
};

// Name of the folder for the files of legends. Neither text has an effect on it.
wide_string legend_folder_for(const wide_string& first, const wide_string& second);

// A layer of a legend: like its base in all but the folder.
template <class Base>
class Tvs_resave_legend_layer : public Base {
public:
    Tvs_resave_legend_layer(vs_lr* handle, const wide_string& layout, const wide_string& legend,
                            run_state& run)
        : Base(handle, run), legend_folder_(legend_folder_for(layout, legend)) {}

    wide_string default_folder() override { return legend_folder_; }

private:
    const wide_string legend_folder_;
};

class Tvs_resave_shp_2d_legend_plus final : public Tvs_resave_legend_layer<Tvs_resave_shp_lr2d> {
public:
    using Tvs_resave_legend_layer::Tvs_resave_legend_layer;
    bool write_dbf_columns() override;
};
using Tvs_resave_rtr_legend_plus = Tvs_resave_legend_layer<Tvs_resave_rtr_lr>;
using Tvs_resave_tos_legend_plus = Tvs_resave_legend_layer<Tvs_resave_tos_lr>;
using Tvs_resave_tld_legend_plus = Tvs_resave_legend_layer<Tvs_resave_tld_lr>;

} // namespace vs::project_resave
