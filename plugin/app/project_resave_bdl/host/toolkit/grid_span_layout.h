// A grid in which a cell may reach over the columns to its right. Everything else is told by the grid_layout
// interface, which the element speaks too. Who implements: the bundle. Who calls: the host.
#pragma once

#include <cstdint>

#include "framework/border/interface.h"

namespace vs::project_resave {

class grid_span_layout_impl : public interface_of<grid_span_layout_impl> {
public:
    static constexpr const char* name = "vs_grid_span_layout_interface_1";
    static constexpr const char16_t* element_kind = u"grid_span_layout";
    // How many columns the cell takes, itself counted: 1 for one that reaches over none, 0 for one that
    // another reaches over and outside of the grid. Never changes.
    virtual uint32_t column_span(uint32_t row, uint32_t column) = 0;
    using operations = operation_list<&grid_span_layout_impl::column_span>;

protected:
    ~grid_span_layout_impl() = default;
};

} // namespace vs::project_resave
