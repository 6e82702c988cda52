// Grids in which a cell may reach over several columns: the plain one, and one in a frame with a caption.
#pragma once

#include <map>
#include <utility>

#include "host/toolkit/grid_span_layout.h"
#include "host/toolkit/groupbox_span.h"
#include "ui/toolkit/grid_layout.h"

namespace vs::project_resave::toolkit {

// Own: the interfaces of the element, as a polymorphic chain.
template <class Own>
class grid_span_base : public grid_base<Own> {
public:
    // As `place`, in a cell that reaches over as many columns, all of them inside of the grid.
    void place_over(uint32_t row, uint32_t column, uint32_t columns_taken, const element& child) {
        this->place(row, column, child);
        for (uint32_t i = 0; i < columns_taken; ++i) spans_[{row, column + i}] = i == 0 ? columns_taken : 0;
    }

    uint32_t column_span(uint32_t row, uint32_t column) override {
        if (row >= this->rows() || column >= this->columns()) return 0;
        const auto span = spans_.find({row, column});
        return span == spans_.end() ? 1 : span->second;
    }

protected:
    using grid_base<Own>::grid_base;
    ~grid_span_base() = default;

private:
    std::map<std::pair<uint32_t, uint32_t>, uint32_t> spans_; // of cells that take more than one, or none
};

class grid_span_layout final
    : public grid_span_base<polymorphic<grid_layout_impl, polymorphic<grid_span_layout_impl>>> {
public:
    grid_span_layout(uint32_t rows, uint32_t columns)
        : grid_span_base(grid_span_layout_impl::element_kind, rows, columns) {}
};

class groupbox_span final
    : public grid_span_base<polymorphic<
          grid_layout_impl,
          polymorphic<grid_span_layout_impl, polymorphic<groupbox_impl, polymorphic<groupbox_span_impl>>>>> {
public:
    groupbox_span(uint32_t rows, uint32_t columns, wide_string caption)
        : grid_span_base(groupbox_span_impl::element_kind, rows, columns), caption_(std::move(caption)) {}

    void caption(string_visitor visitor) override { tell(visitor, caption_); }

private:
    const wide_string caption_;
};

} // namespace vs::project_resave::toolkit
