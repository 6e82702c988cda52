// One view of the selection as a tree of rows, with its tools above it.
#pragma once

#include "ui/entities_columns.h"
#include "ui/toolkit/grid_layout.h"
#include "ui/toolkit/outline.h"
#include "ui/toolkit/tool.h"
#include "ui/toolkit/toolbar.h"

namespace vs::project_resave::detail {

// Asks the model for every answer. When the view changes, so does the outline.
class entities_outline final : public toolkit::outline {
public:
    // The model must outlive the outline. A view with rows.
    entities_outline(entities_model& model, uint32_t view);

    bool enabled() override { return model_.view_enabled(view_); }
    uint32_t child_count(outline_row* parent) override;
    outline_row* child(outline_row* parent, uint32_t index) override;
    bool has_children(outline_row* parent) override { return child_count(parent) != 0; }
    bool expanded(outline_row* row) override { return row && item_of(row)->expanded(); }
    void set_expanded(outline_row* row, bool on) override;
    bool highlighted(outline_row* row) override { return row && item_of(row)->highlighted(); }
    void set_highlighted(outline_row* row, bool on) override;
    void highlight_added(outline_row* row, outline_row* second) override;
    void current_changed(outline_row* row) override { model_.set_current_item(view_, item_of(row)); }
    uint32_t image_count() override;
    void image(int32_t index, masked_bitmap_visitor visitor) override;
    int32_t image_index(outline_row* row) override;
    outline_column name_column() override { return pointer_to<outline_column_impl>(names_); }
    outline_checks checks() override { return pointer_to<outline_checks_impl>(checks_); }

private:
    // The row, or the root for null.
    select_tree_item* parent_item(outline_row* parent);

    entities_model& model_;
    const uint32_t view_;
    entities_name_collumn names_;
    entities_check checks_;
    std::shared_ptr<void> connection_;
};

// A tool of the selection; its picture, caption and hint have one number.
using common_tool = toolkit::tool;

// The tools that a view has. They are enabled as the view is, but for those on everything, which always are.
class entities_toolbar final : public toolkit::toolbar {
public:
    // The model must outlive the tool bar.
    entities_toolbar(entities_model& model, uint32_t view);

private:
    void enable_tools(bool on);

    common_tool select_;
    common_tool unselect_;
    common_tool invert_;
    common_tool visible_;
    std::shared_ptr<void> connection_;
};

} // namespace vs::project_resave::detail
