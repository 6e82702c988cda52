// The layouts, which place elements. Main thread only.
#pragma once

#include <functional>
#include <map>
#include <utility>
#include <vector>

#include "host/toolkit/grid_layout.h"
#include "host/toolkit/grid_span_layout.h"
#include "host/toolkit/groupbox.h"
#include "host/toolkit/groupbox_span.h"
#include "host/toolkit/split_layout.h"
#include "host/toolkit/stack_layout.h"
#include "host/toolkit/tab_layout.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// Base of layouts in rows and columns: the plain grid and the group box, which is a grid in a frame with a
// caption. Own: the grid's interface and any other interface of the element, as a polymorphic chain.
template <class Own>
class grid_base : public element_base<Own> {
public:
    // Puts a child, which must outlive the layout, into a cell of the grid, counted from 0 and inside the
    // grid; replaces an earlier one. Call before a host asks for the cells: it is not notified of a change.
    void place(uint32_t row, uint32_t column, const element& child) { cells_.at(cell(row, column)) = child; }
    // Sets the row that gets the remaining height. Without it, all rows share the height.
    void set_spare_row(uint32_t row) { spare_row_ = row; }

    uint32_t rows() override { return rows_; }
    uint32_t columns() override { return columns_; }
    // Returns null for an empty cell and outside the grid.
    element child(uint32_t row, uint32_t column) override {
        return row < rows_ && column < columns_ ? cells_[cell(row, column)] : element();
    }
    uint32_t spare_row() override { return spare_row_; }

protected:
    // All cells are empty. The size never changes, since a host asks for it only once.
    grid_base(const char16_t* own_kind, uint32_t rows, uint32_t columns)
        : element_base<Own>(own_kind), rows_(rows), columns_(columns), cells_(cell(rows, 0)) {}
    ~grid_base() = default;

private:
    // Returns the index of a cell; for row `rows_`, the number of cells.
    size_t cell(uint32_t row, uint32_t column) const { return size_t{row} * columns_ + column; }

    const uint32_t rows_;
    const uint32_t columns_;
    uint32_t spare_row_ = grid_layout_impl::no_row;
    // Row by row; null for an empty cell.
    std::vector<element> cells_;
};

// A plain grid.
class grid_layout final : public grid_base<polymorphic<grid_layout_impl>> {
public:
    grid_layout(uint32_t rows, uint32_t columns) : grid_base(grid_layout_impl::element_kind, rows, columns) {}
};

// A grid in a frame with a caption, which may be empty.
class groupbox : public grid_base<polymorphic<grid_layout_impl, polymorphic<groupbox_impl>>> {
public:
    groupbox(uint32_t rows, uint32_t columns, wide_string caption = {})
        : grid_base(groupbox_impl::element_kind, rows, columns), caption_(std::move(caption)) {}

    void caption(string_visitor visitor) override { tell(visitor, caption_); }

private:
    const wide_string caption_;
};

// Base of grids in which a cell can span several columns: the plain one and the one in a frame with a
// caption. Own: the interfaces of the element, as a polymorphic chain.
template <class Own>
class grid_span_base : public grid_base<Own> {
public:
    // Like `place`, in a cell that spans `columns_taken` columns, all inside the grid. The cells that it
    // covers must stay empty: they would not be shown.
    void place_over(uint32_t row, uint32_t column, uint32_t columns_taken, const element& child) {
        this->place(row, column, child);
        for (uint32_t i = 0; i < columns_taken; ++i) spans_[{row, column + i}] = i == 0 ? columns_taken : 0;
    }

    // Returns 1 for an ordinary cell, 0 for one that another cell covers and outside the grid.
    uint32_t column_span(uint32_t row, uint32_t column) override {
        if (row >= this->rows() || column >= this->columns()) return 0;
        const auto span = spans_.find({row, column});
        return span == spans_.end() ? 1 : span->second;
    }

protected:
    using grid_base<Own>::grid_base;
    ~grid_span_base() = default;

private:
    std::map<std::pair<uint32_t, uint32_t>, uint32_t>
        spans_; // of the cells that span several columns, or none
};

// A plain grid with spans.
class grid_span_layout final
    : public grid_span_base<polymorphic<grid_layout_impl, polymorphic<grid_span_layout_impl>>> {
public:
    grid_span_layout(uint32_t rows, uint32_t columns)
        : grid_span_base(grid_span_layout_impl::element_kind, rows, columns) {}
};

// A grid with spans in a frame with a caption. Its last interface has no operations: its name tells a host
// what kind of frame it is.
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

// Two elements, one above the other, with a movable divider between them. Its position belongs to the host.
class split_layout final : public element_base<polymorphic<split_layout_impl>> {
public:
    // Both must outlive the layout.
    split_layout(const element& top_element, const element& bottom_element)
        : element_base(split_layout_impl::element_kind), top_(top_element), bottom_(bottom_element) {}

    element top() override { return top_; }
    element bottom() override { return bottom_; }

private:
    // Null for an empty half.
    const element top_;
    const element bottom_;
};

// Elements side by side, from left to right. Their number never changes.
class stack_layout final : public element_base<polymorphic<stack_layout_impl>> {
public:
    // All of them must outlive the layout.
    explicit stack_layout(std::vector<element> children)
        : element_base(stack_layout_impl::element_kind), children_(std::move(children)) {}

    uint32_t child_count() override { return static_cast<uint32_t>(children_.size()); }
    element child(uint32_t index) override { return index < children_.size() ? children_[index] : element(); }

private:
    const std::vector<element> children_;
};

// Pages with tabs. A page has an id for programs, the same in every language, and a title for the user.
class tab_layout final : public element_base<polymorphic<tab_layout_impl>> {
public:
    tab_layout() : element_base(tab_layout_impl::element_kind) {}

    // Appends a page, whose content must outlive the layout. The first page is shown initially. Call before
    // the host asks for the pages.
    void add(wide_string id, wide_string title, const docker& content);
    // Enables or disables a page; the one that is shown stays shown. Throws std::out_of_range for an index
    // past the last.
    void set_enabled(uint32_t index, bool on) { assign(pages_.at(index).enabled, on); }
    // The whole layout; otherwise hidden by the function for one page.
    using element_base::set_enabled;
    // Returns the index of the page that is shown.
    uint32_t active() const { return active_; }
    // Called after the user has chosen another page, which is the only way to change it.
    void set_on_page_changed(std::function<void()> handler) { page_changed_ = std::move(handler); }

    uint32_t page_count() override { return static_cast<uint32_t>(pages_.size()); }
    void page_id(uint32_t index, string_visitor visitor) override;
    void page_title(uint32_t index, string_visitor visitor) override;
    docker page(uint32_t index) override { return is_inside(index) ? pages_[index].content : docker(); }
    // Of the tab; the page as an element has its own state, and a host combines both.
    bool page_enabled(uint32_t index) override { return is_inside(index) && pages_[index].enabled; }
    uint32_t active_page() override { return active_; }
    // By the user; ignored for the current page, for a disabled one and past the last.
    void page_chosen(uint32_t index) override;

private:
    // A page. Only `enabled` changes after it was added.
    struct page_row {
        wide_string id;
        wide_string title;
        docker content;
        bool enabled = true;
    };
    bool is_inside(uint32_t index) const { return index < pages_.size(); }

    std::vector<page_row> pages_;
    // 0 even without pages, so test against the count.
    uint32_t active_ = 0;
    std::function<void()> page_changed_;
};

} // namespace vs::project_resave::toolkit
