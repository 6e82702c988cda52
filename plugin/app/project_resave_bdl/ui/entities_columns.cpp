#include "ui/entities_columns.h"

#include "host/vsk_basic.h"
#include "host/vsk_msgs.h"
#include "ui/toolkit/tool.h"

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
        vs_show_werror(u" error_select_1");
        return;
    }
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
    const bool on = vs_3state_to_bool(vs_3state_invert(root->check_state()));
    root->set_checked(on);
    model.on_item_checked(view, *root, on, false);
    model.fire_changed(view);
}

} // namespace vs::project_resave::detail
