// The columns of the selection's outlines: names, and check marks.
#pragma once

#include "framework/border/polymorphic.h"
#include "host/toolkit/outline.h"
#include "ui/entities_model.h"

namespace vs::project_resave::detail {

inline select_tree_item* item_of(outline_row* row) { return reinterpret_cast<select_tree_item*>(row); }
inline outline_row* row_of(select_tree_item* item) { return reinterpret_cast<outline_row*>(item); }

class entities_name_collumn final : public outline_column_impl {
public:
    entities_name_collumn(entities_model& model, uint32_t view) : model_(model), view_(view) {}

    void id(string_visitor visitor) override;
    void header(string_visitor visitor) override;
    void text(outline_row* row, string_visitor visitor) override;
    uint32_t width() override { return 60; }
    bool invalid(outline_row* row) override { return row && !item_of(row)->valid(); }
    bool highlighted(outline_row* row) override { return row && item_of(row)->highlighted(); }

private:
    entities_model& model_;
    const uint32_t view_;
};

// A click on the mark of a row. On a highlighted row it acts on all that is highlighted in the view.
void click_mark(entities_model& model, uint32_t view, select_tree_item* item, bool on);

// Own: outline_checks_impl, with whatever the column speaks beside it.
template <class Own>
class entities_marks : public Own {
public:
    entities_marks(entities_model& owner, uint32_t shown) : model(owner), view(shown) {}

    bool mixed(outline_row* row) override { return row && item_of(row)->check_state() == vs_state_mixed; }
    bool checked(outline_row* row) override { return row && item_of(row)->check_state() == vs_state_true; }
    void click(outline_row* row, bool on) override { click_mark(model, view, item_of(row), on); }

protected:
    ~entities_marks() = default;

    entities_model& model;
    const uint32_t view;
};

class entities_check final : public entities_marks<outline_checks_impl> {
public:
    using entities_marks::entities_marks;
};

// The same with pictures, and a click on the header that turns the whole view over; what is mixed goes off.
class entities_select_collumn final
    : public entities_marks<polymorphic<outline_checks_impl, polymorphic<outline_bool_column_impl>>> {
public:
    using entities_marks::entities_marks;

    void image(masked_bitmap_visitor visitor) override;
    void header_image(masked_bitmap_visitor visitor) override;
    void click_header() override;
};

} // namespace vs::project_resave::detail
