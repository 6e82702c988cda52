// A layer of drawn graphics: a file with its projection.
#pragma once

#include "layers/resave_layer.h"

namespace vs::project_resave {

class resave_graphics_layer : public Tvs_resave_layer {
public:
    using Tvs_resave_layer::Tvs_resave_layer;

    wide_string default_folder() override;
    bool copy_files(const wide_string& source, const wide_string& target) override;
};

} // namespace vs::project_resave
