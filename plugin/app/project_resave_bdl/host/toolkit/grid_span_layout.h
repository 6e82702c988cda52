// A grid in which a cell can span columns to its right. The element also implements grid_layout for
// everything else.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "framework/border/interface.h"

namespace vs::project_resave {

class grid_span_layout_impl : public interface_of<grid_span_layout_impl> {
public:
    static constexpr const char* name = "vs_grid_span_layout_interface_1";
    static constexpr const char16_t* element_kind = u"grid_span_layout";
    // Returns the number of columns that the cell spans, including its own: 1 for an ordinary cell, 0 for a
    // cell that another one covers, and 0 outside the grid. Never changes.
    virtual uint32_t column_span(uint32_t row, uint32_t column) = 0;
    using operations = operation_list<&grid_span_layout_impl::column_span>;

protected:
    ~grid_span_layout_impl() = default;
};

} // namespace vs::project_resave
