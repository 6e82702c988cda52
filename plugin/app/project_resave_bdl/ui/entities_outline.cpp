// Answers the host's questions about the rows of a view from the model. Row pointers are the model's own
// items, so they are valid until the model is filled again.

#include "ui/entities_outline.h"

#include "framework/resources/text_rows.h"
#include "host/vsk_basic.h"
#include "host/vsk_msgs.h"
#include "ui/toolkit/buttons.h"

namespace vs::project_resave::detail {

namespace {

constexpr uint32_t mark_picture = 1000;
constexpr uint32_t header_picture = 1007;

} // namespace

void entities_name_collumn::id(string_visitor visitor) {
    tell(visitor, u"vs_project_resave_select_entity_name_column");
}

void entities_name_collumn::header(string_visitor visitor) {
    if (const select_tree_node* root = model_.root(view_)) root->caption_to(visitor);
}

void entities_name_collumn::text(outline_row* row, string_visitor visitor) {
    if (row) item_of(row)->caption_to(visitor);
}

void click_mark(entities_model& model, uint32_t view, select_tree_item* item, bool on) {
    if (!item) {
        // Only a host that passes a null row gets here.
        vs_show_werror(u" error_select_1");
        return;
    }
    // Only the clicked row decides: rows that are highlighted elsewhere do not count if it is not.
    const bool all_highlighted = item->highlighted();
    if (all_highlighted) {
        item = model.root(view);
        if (!item) return;
        item->set_checked_if_highlighted(on);
    } else {
        item->set_checked(on);
    }
    model.on_item_checked(view, *item, on, all_highlighted);
    model.fire_changed(view);
}

void entities_select_collumn::image(masked_bitmap_visitor visitor) {
    toolkit::tell_picture(visitor, mark_picture);
}

void entities_select_collumn::header_image(masked_bitmap_visitor visitor) {
    toolkit::tell_picture(visitor, header_picture);
}

void entities_select_collumn::click_header() {
    select_tree_node* const root = model.root(view);
    if (!root) return;
    // Kept as users know it: a mixed view counts as checked, so the click unchecks it.
    const bool on = vs_3state_to_bool(vs_3state_invert(root->check_state()));
    root->set_checked(on);
    model.on_item_checked(view, *root, on, false);
    model.fire_changed(view);
}

entities_outline::entities_outline(entities_model& model, uint32_t view)
    : model_(model), view_(view), names_(model, view), checks_(model, view) {
    if (event* changed = model.changed_event(view)) connection_ = changed->connect([this] { refresh(); });
}

select_tree_item* entities_outline::parent_item(outline_row* parent) {
    return parent ? item_of(parent) : model_.root(view_);
}

uint32_t entities_outline::child_count(outline_row* parent) {
    const select_tree_item* const item = parent_item(parent);
    return item ? item->child_count() : 0;
}

outline_row* entities_outline::child(outline_row* parent, uint32_t index) {
    const select_tree_item* const item = parent_item(parent);
    return item ? row_of(item->child_at(index)) : nullptr;
}

void entities_outline::set_expanded(outline_row* row, bool on) {
    if (row) item_of(row)->set_expanded(on);
}

void entities_outline::set_highlighted(outline_row* row, bool on) {
    if (row) item_of(row)->set_highlighted(on);
}

// The host highlights the rows that it shows; rows below a collapsed one are highlighted here.
void entities_outline::highlight_added(outline_row* row, outline_row* second) {
    if (row && !second) item_of(row)->set_highlighted_deep(true);
}

uint32_t entities_outline::image_count() {
    layer_icons* const icons = model_.icons(view_);
    // One picture of width 0, which `image` passes below.
    return icons ? icons->count() : 1;
}

void entities_outline::image(int32_t index, masked_bitmap_visitor visitor) {
    resource::masked_bitmap none;
    layer_icons* const icons = model_.icons(view_);
    masked_bitmap_impl* const found = icons ? icons->at(index) : nullptr;
    call<&masked_bitmap_visitor_impl::visit>(visitor, pointer_to<masked_bitmap_impl>(found ? *found : none));
}

int32_t entities_outline::image_index(outline_row* row) {
    layer_icons* const icons = model_.icons(view_);
    return row && icons ? icons->index_of(item_of(row)->layer_type) : -1;
}

entities_toolbar::entities_toolbar(entities_model& model, uint32_t view)
    : select_(u"vs_resave_project_select_tool", text::select_tool,
              [&model, view] { model.set_all(view, true); }),
      unselect_(u"vs_resave_project_unselect_tool", text::unselect_tool,
                [&model, view] { model.set_all(view, false); }),
      invert_(u"vs_resave_project_invert_select_tool", text::invert_tool,
              [&model, view] { model.invert(view); }),
      visible_(u"vs_resave_project_vis_select_tool", text::visible_tool,
               [&model, view] { model.reset(view); }) {
    add(select_);
    add(unselect_);
    // Everything together cannot be inverted; see entities_model::change.
    if (view != views::everything) add(invert_);
    if (view >= views::layers_2d && view <= views::scenes_3d) add(visible_);
    if (event* changed = model.changed_event(view))
        connection_ = changed->connect([this, &model, view] { enable_tools(model.view_enabled(view)); });
}

void entities_toolbar::enable_tools(bool on) {
    // Also tools that this view does not show; that has no effect.
    for (common_tool* each : {&visible_, &unselect_, &select_, &invert_}) each->set_enabled(on);
}

} // namespace vs::project_resave::detail
