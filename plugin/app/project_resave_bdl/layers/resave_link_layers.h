// Layers that have nothing to copy but name other elements of the project: with them those come into the
// selection. Their references are kept as they are.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

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

} // namespace vs::project_resave
