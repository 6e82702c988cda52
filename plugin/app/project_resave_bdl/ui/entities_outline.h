// The tree of elements: its rows, columns and tools. Main thread only.
#pragma once

#include "framework/border/polymorphic.h"
#include "host/toolkit/outline.h"
#include "ui/entities_model.h"
#include "ui/toolkit/buttons.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"

namespace vs::project_resave::detail {

// The columns of the selection's outlines: names and check marks. Rows of an outline are items of the tree.

// Conversions between the host's opaque rows and the items that they are; null stays null.
inline select_tree_item* item_of(outline_row* row) { return reinterpret_cast<select_tree_item*>(row); }
inline outline_row* row_of(select_tree_item* item) { return reinterpret_cast<outline_row*>(item); }

// The column with the names. Its header is the caption of the view's root; it has none without a root.
class entities_name_collumn final : public outline_column_impl {
public:
    // The model must outlive the column.
    entities_name_collumn(entities_model& model, uint32_t view) : model_(model), view_(view) {}

    void id(string_visitor visitor) override;
    void header(string_visitor visitor) override;
    void text(outline_row* row, string_visitor visitor) override;
    uint32_t width() override { return 60; }
    // A row is drawn as invalid if its element is, or any element below it.
    bool invalid(outline_row* row) override { return row && !item_of(row)->valid(); }
    bool highlighted(outline_row* row) override { return row && item_of(row)->highlighted(); }

private:
    entities_model& model_;
    const uint32_t view_;
};

// Handles a click on the mark of a row, updates related rows and makes the view's elements ask again. On a
// highlighted row it applies to all highlighted rows of the view. A null row shows an error box.
void click_mark(entities_model& model, uint32_t view, select_tree_item* item, bool on);

// The column with the check marks. Own: outline_checks_impl, together with any other interface of the column.
template <class Own>
class entities_marks : public Own {
public:
    // The model must outlive the column.
    entities_marks(entities_model& owner, uint32_t shown) : model(owner), view(shown) {}

    // Of the leaves at or below the row.
    bool mixed(outline_row* row) override { return row && item_of(row)->check_state() == vs_state_mixed; }
    bool checked(outline_row* row) override { return row && item_of(row)->check_state() == vs_state_true; }
    void click(outline_row* row, bool on) override { click_mark(model, view, item_of(row), on); }

protected:
    ~entities_marks() = default;

    entities_model& model;
    const uint32_t view;
};

// The column without pictures, which outlines use.
class entities_check final : public entities_marks<outline_checks_impl> {
public:
    using entities_marks::entities_marks;
};

// The same with pictures and a header. A click on the header checks everything in the view, or unchecks it if
// anything is checked.
class entities_select_collumn final
    : public entities_marks<polymorphic<outline_checks_impl, polymorphic<outline_bool_column_impl>>> {
public:
    using entities_marks::entities_marks;

    // Pass the bundle's pictures of a mark and of the header.
    void image(masked_bitmap_visitor visitor) override;
    void header_image(masked_bitmap_visitor visitor) override;
    void click_header() override;
};

// One view of the selection as a tree of rows. It asks the model for every answer, and refreshes itself when
// the view changes. Rows are items of the model, so they are valid until the view is filled again.
class entities_outline final : public toolkit::outline {
public:
    // The model must outlive the outline. `view` must be one with rows.
    entities_outline(entities_model& model, uint32_t view);

    bool enabled() override { return model_.view_enabled(view_); }
    // Rows. The model answers at once, without a request to the project.
    uint32_t child_count(outline_row* parent) override;
    outline_row* child(outline_row* parent, uint32_t index) override;
    bool has_children(outline_row* parent) override { return child_count(parent) != 0; }
    bool expanded(outline_row* row) override { return row && item_of(row)->expanded(); }
    void set_expanded(outline_row* row, bool on) override;
    bool highlighted(outline_row* row) override { return row && item_of(row)->highlighted(); }
    void set_highlighted(outline_row* row, bool on) override;
    // With `second`, does nothing: the host has set the rows between the two itself.
    void highlight_added(outline_row* row, outline_row* second) override;
    // In a list of scenes, shows the layers of the scene.
    void current_changed(outline_row* row) override { model_.set_current_item(view_, item_of(row)); }
    // Pictures. Only views of layers have some; every other view reports one, which is empty.
    uint32_t image_count() override;
    void image(int32_t index, masked_bitmap_visitor visitor) override;
    // By the layer's type; -1 for a type that no service of the scene kind defines.
    int32_t image_index(outline_row* row) override;
    outline_column name_column() override { return pointer_to<outline_column_impl>(names_); }
    outline_checks checks() override { return pointer_to<outline_checks_impl>(checks_); }

private:
    // Returns the row's item, or the root for null.
    select_tree_item* parent_item(outline_row* parent);

    entities_model& model_;
    const uint32_t view_;
    // The columns that hosts get; they live as long as the outline.
    entities_name_collumn names_;
    entities_check checks_;
    std::shared_ptr<void> connection_;
};

// A tool of the selection; picture, caption and hint have the same number.
using common_tool = toolkit::tool;

// The tools of a view. They are enabled if the view is; the tools for everything always are.
class entities_toolbar final : public toolkit::toolbar {
public:
    // The model must outlive the tool bar. All views have tools to check and uncheck everything; each single
    // view also one to invert the marks, and views of scenes and layers one that checks what is visible.
    entities_toolbar(entities_model& model, uint32_t view);

private:
    // Enables or disables all tools together, after the view's event.
    void enable_tools(bool on);

    common_tool select_;
    common_tool unselect_;
    common_tool invert_;
    common_tool visible_;
    std::shared_ptr<void> connection_;
};

} // namespace vs::project_resave::detail
