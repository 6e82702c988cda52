// The plug-in of a legend in a layout. Its identity is what vs_layout_lr2d_get_plugin_interface points to.
//
// Who implements: the plug-in that draws the legend. Who calls: the resave. The object belongs to the layer
// and is destroyed with it. It is not a referent, so do not keep it. Main thread only.
#pragma once

#include "framework/border/interface.h"

namespace vs::project_resave {

class layout_legend_layer_impl : public interface_of<layout_legend_layer_impl> {
public:
    static constexpr const char* name = "vs_layout_legend_layer_interface_1";
    // Returns the small 2D scene that the legend shows, which belongs to the layer; null if there is none.
    virtual vs_scn_2d* scene() = 0;
    using operations = operation_list<&layout_legend_layer_impl::scene>;

protected:
    ~layout_legend_layer_impl() = default;
};
using layout_legend_layer = interface_to<layout_legend_layer_impl>;

} // namespace vs::project_resave
