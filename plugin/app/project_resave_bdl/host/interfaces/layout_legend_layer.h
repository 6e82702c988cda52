// The plug-in behind a legend of a layout, reached through vs_layout_lr2d_get_plugin_interface. It belongs to
// the layer.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class layout_legend_layer_impl : public interface_of<layout_legend_layer_impl> {
public:
    static constexpr const char* name = "vs_layout_legend_layer_interface_1";
    // The small scene the legend shows, not owned, or null.
    virtual vs_scn_2d* scene() = 0;
    using operations = operation_list<&layout_legend_layer_impl::scene>;

protected:
    ~layout_legend_layer_impl() = default;
};
using layout_legend_layer = interface_to<layout_legend_layer_impl>;

} // namespace vs::project_resave
