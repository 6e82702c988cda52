// Cells in rows and columns, each empty or with one element. Rows and columns count from 0.
//
// Who implements: the bundle. Who calls: the host. The object is an element too: host/toolkit/element.h says
// how long it lives and how it reports a change. Main thread only.
#pragma once

#include <cstdint>

#include "host/toolkit/element.h"

namespace vs::project_resave {

class grid_layout_impl : public interface_of<grid_layout_impl> {
public:
    static constexpr const char* name = "vs_grid_layout_interface_1";
    static constexpr const char16_t* element_kind = u"grid_layout";
    static constexpr uint32_t no_row = UINT32_MAX;
    // Returns the number of rows, which never changes.
    virtual uint32_t rows() = 0;
    // Returns the number of columns, which never changes.
    virtual uint32_t columns() = 0;
    // Returns the element of a cell; null for an empty cell and outside the grid.
    virtual element child(uint32_t row, uint32_t column) = 0;
    // Returns the row that gets all the remaining height; `no_row` if all rows share it.
    virtual uint32_t spare_row() = 0;
    using operations = operation_list<&grid_layout_impl::rows, &grid_layout_impl::columns,
                                      &grid_layout_impl::child, &grid_layout_impl::spare_row>;

protected:
    ~grid_layout_impl() = default;
};

} // namespace vs::project_resave
