// Layouts in rows and columns: the plain grid, and the group box, a grid in a frame with a caption.
#pragma once

#include <vector>

#include "host/toolkit/grid_layout.h"
#include "host/toolkit/groupbox.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// Own: the grid's interface and whatever the element speaks beside it, as a polymorphic chain.
template <class Own>
class grid_base : public element_base<Own> {
public:
    // Puts a child, which must outlive the layout, into a cell inside of the grid, counted from 0.
    void place(uint32_t row, uint32_t column, const element& child) { cells_.at(cell(row, column)) = child; }
    void set_spare_row(uint32_t row) { spare_row_ = row; }

    uint32_t rows() override { return rows_; }
    uint32_t columns() override { return columns_; }
    element child(uint32_t row, uint32_t column) override {
        return row < rows_ && column < columns_ ? cells_[cell(row, column)] : element();
    }
    uint32_t spare_row() override { return spare_row_; }

protected:
    grid_base(const char16_t* own_kind, uint32_t rows, uint32_t columns)
        : element_base<Own>(own_kind), rows_(rows), columns_(columns), cells_(cell(rows, 0)) {}
    ~grid_base() = default;

private:
    size_t cell(uint32_t row, uint32_t column) const { return size_t{row} * columns_ + column; }

    const uint32_t rows_;
    const uint32_t columns_;
    uint32_t spare_row_ = grid_layout_impl::no_row;
    std::vector<element> cells_;
};

class grid_layout final : public grid_base<polymorphic<grid_layout_impl>> {
public:
    grid_layout(uint32_t rows, uint32_t columns) : grid_base(grid_layout_impl::element_kind, rows, columns) {}
};

class groupbox : public grid_base<polymorphic<grid_layout_impl, polymorphic<groupbox_impl>>> {
public:
    groupbox(uint32_t rows, uint32_t columns, wide_string caption = {})
        : grid_base(groupbox_impl::element_kind, rows, columns), caption_(std::move(caption)) {}

    void caption(string_visitor visitor) override { tell(visitor, caption_); }

private:
    const wide_string caption_;
};

} // namespace vs::project_resave::toolkit
