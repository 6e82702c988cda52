// List that drops down, with a label, and a value of the bundle's own behind each row.
#pragma once

#include <vector>

#include "host/toolkit/dropdownex.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class dropdownex final : public element_base<polymorphic<dropdownex_impl>> {
public:
    struct row {
        wide_string text;
        wide_string value;
    };
    // No row is current at first.
    dropdownex(wide_string label, std::vector<row> rows)
        : element_base(dropdownex_impl::element_kind), label_(std::move(label)), rows_(std::move(rows)) {}

    // `index` as for `row_chosen`.
    void set_current(uint32_t index) {
        if (index < rows_.size() || index == no_row) assign(current_, index);
    }
    // Of the current row; empty without one.
    wide_string value() const { return current_ < rows_.size() ? rows_[current_].value : wide_string(); }

    void label(string_visitor visitor) override { tell(visitor, label_); }
    uint32_t row_count() override { return static_cast<uint32_t>(rows_.size()); }
    void row_text(uint32_t index, string_visitor visitor) override {
        if (index < rows_.size()) tell(visitor, rows_[index].text);
    }
    uint32_t current_row() override { return current_; }
    void row_chosen(uint32_t index) override { set_current(index); }

private:
    const wide_string label_;
    const std::vector<row> rows_;
    uint32_t current_ = no_row;
};

} // namespace vs::project_resave::toolkit
