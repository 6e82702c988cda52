// Passes the actions of the user on a view to the trees that the view shows.

#include "ui/entities_model.h"

#include <algorithm>

#include "framework/border/encoding.h"
#include "framework/resources/strings.h"
#include "host/vsk_attr_data.h"
#include "host/vsk_entity.h"
#include "host/vsk_prj.h"
#include "host/vsk_scn_2d.h"
#include "host/vsk_tos_data.h"
#include "operations/project_context.h"
#include "ui/entities_fill.h"

namespace vs::project_resave::detail {

entities_model::flat_view::flat_view(selection_register& told, text::row caption)
    : root(told, load_string(caption)) {}

entities_model::entities_model(project_context& owner)
    : context_(owner), model_2d_(owner.selection_register(), text::scenes_2d_page, u"vestra/scene/2d"),
      model_3d_(owner.selection_register(), text::scenes_3d_page, u"vestra/scene/3d"),
      flat_views_{flat_view(owner.selection_register(), text::dbf_tables_page),
                  flat_view(owner.selection_register(), text::tos_tables_page),
                  flat_view(owner.selection_register(), text::layouts_page),
                  flat_view(owner.selection_register(), text::wells_page),
                  flat_view(owner.selection_register(), text::correlations_page),
                  flat_view(owner.selection_register(), text::others_page)} {
    enabled_.fill(true);
}

entities_model::place entities_model::place_of(uint32_t view) {
    switch (view) {
    case views::layers_2d:
        return {&model_2d_, bottom_part};
    case views::scenes_2d:
        return {&model_2d_, top_part};
    case views::layers_3d:
        return {&model_3d_, bottom_part};
    case views::scenes_3d:
        return {&model_3d_, top_part};
    default:
        return {};
    }
}

entities_model::flat_view* entities_model::flat_of(uint32_t view) {
    return view >= views::dbf_tables && view <= views::others ? &flat_views_[view - views::dbf_tables]
                                                              : nullptr;
}

void entities_model::set_project(vs_prj* project) {
    if (project)
        fill(project);
    else
        clear();
}

void entities_model::clear() {
    model_2d_.clear();
    model_3d_.clear();
    for (flat_view& flat : flat_views_) flat.root.clear_children();
}

void entities_model::fill(vs_prj* project) {
    const auto fill_view = [this](uint32_t view, vs_entities* collection) {
        flat_view& flat = *flat_of(view);
        fill_flat(collection, flat.root, flat.changed);
    };
    // Rows are created as checked, and the register begins empty, so both agree without a change.
    fill_scenes_2d(project, model_2d_);
    fill_scenes_3d(project, model_3d_);
    fill_view(views::dbf_tables, vs_attrs_data_safe_upcast(vs_prj_get_attrs_data_ptr(project)));
    fill_view(views::tos_tables, vs_toss_data_safe_upcast(vs_prj_get_toss_data_ptr(project)));
    fill_view(views::layouts, vs_scns_2d_safe_upcast(vs_prj_get_layouts_data_ptr(project)));
    const uint32_t collections = vs_prj_get_plugin_scns_2d_count(project);
    for (uint32_t index = 0; index < collections; ++index) {
        vs_entities* sheets = vs_scns_2d_safe_upcast(vs_prj_get_plugin_scns_2d_ptr(project, index));
        const auto meta_id = narrow_or_empty(vs_entity_get_meta_id(vs_entities_safe_upcast(sheets)));
        // Of two collections of the same kind only the later one is shown.
        if (meta_id == "plugin_scn_2d_well_planshet_collection3") fill_view(views::wells, sheets);
        if (meta_id == "c_scn2d_correlation_collection2") fill_view(views::correlations, sheets);
    }
    // Plug-in collections of other kinds have no view.
    fill_services(context_.services, flat_of(views::others)->root);
}

void entities_model::set_all(uint32_t view, bool on) {
    change(
        view, [on](select_2part_model& scenes, uint32_t part) { scenes.set_all(part, on); },
        [on](select_tree_node& tree) { tree.set_checked(on); });
}

void entities_model::invert(uint32_t view) {
    change(
        view, [](select_2part_model& scenes, uint32_t part) { scenes.invert(part); },
        [](select_tree_node& tree) { tree.invert_checked(); });
}

void entities_model::reset(uint32_t view) {
    change(
        view, [](select_2part_model& scenes, uint32_t part) { scenes.reset(part); },
        [](select_tree_node& tree) { tree.reset_checked(); });
}

void entities_model::untick(const std::unordered_set<wide_string>& uuids) {
    const auto untick_in = [&uuids](select_tree_node& tree) {
        std::vector<select_tree_leaf*> leaves;
        tree.collect_leaves(leaves, false);
        for (select_tree_leaf* leaf : leaves)
            if (uuids.contains(leaf->uuid)) leaf->set_checked(false);
    };
    const auto untick_scenes = [&untick_in](select_2part_model& scenes, uint32_t part) {
        // The trees of layers are visited once, together with the scenes.
        if (part != top_part) return;
        untick_in(*scenes.root(top_part));
        for (const auto& [uuid, tree] : scenes.bottoms()) untick_in(*tree);
    };
    change(views::everything, untick_scenes, untick_in);
}

void entities_model::change(uint32_t view, const part_change& change_part, const tree_change& change_tree) {
    if (view == views::everything) {
        for (select_2part_model* scenes : {&model_2d_, &model_3d_}) {
            // The top part includes the layers of all scenes. The bottom part, which comes first, changes
            // those of the current scene as well, so an inversion would be undone for them; no tool inverts
            // everything.
            change_part(*scenes, bottom_part);
            change_part(*scenes, top_part);
        }
        for (flat_view& flat : flat_views_) change_tree(flat.root);
    } else if (const place at = place_of(view); at.model) {
        change_part(*at.model, at.part);
    } else if (flat_view* flat = flat_of(view)) {
        change_tree(flat->root);
    }
    fire_changed(view);
}

void entities_model::on_item_checked(uint32_t view, select_tree_item& item, bool on, bool only_highlighted) {
    if (const place at = place_of(view); at.model)
        at.model->on_item_checked(at.part, item, on, only_highlighted);
}

void entities_model::set_current_item(uint32_t view, const select_tree_item* item) {
    if (const place at = place_of(view); at.model) at.model->set_current_item(at.part, item);
}

select_tree_node* entities_model::root(uint32_t view) {
    if (const place at = place_of(view); at.model) return at.model->root(at.part);
    flat_view* const flat = flat_of(view);
    return flat ? &flat->root : nullptr;
}

event* entities_model::changed_event(uint32_t view) {
    if (const place at = place_of(view); at.model) return at.model->changed_event(at.part);
    flat_view* const flat = flat_of(view);
    return flat ? &flat->changed : nullptr;
}

layer_icons* entities_model::icons(uint32_t view) {
    const place at = place_of(view);
    return at.model && at.part == bottom_part ? &at.model->icons() : nullptr;
}

bool entities_model::is_view_empty(uint32_t tab_index) {
    // 0 and 1 are the 2D scenes with their layers, 2 and 3 the 3D scenes; the list of scenes decides.
    if (tab_index < 4) return (tab_index < 2 ? model_2d_ : model_3d_).root(top_part)->is_empty();
    const flat_view* const flat = flat_of(tab_index + 1);
    return !flat || flat->root.is_empty();
}

void entities_model::fire_changed(uint32_t view) {
    if (view != views::everything) {
        if (event* changed = changed_event(view)) changed->fire();
        return;
    }
    for (const uint32_t each : {views::layers_2d, views::scenes_2d, views::layers_3d, views::scenes_3d})
        changed_event(each)->fire();
    for (flat_view& flat : flat_views_) flat.changed.fire();
}

bool entities_model::view_enabled(uint32_t view) const {
    if (view == views::everything)
        return std::any_of(enabled_.begin(), enabled_.end(), [](bool on) { return on; });
    return view <= enabled_.size() && enabled_[view - 1];
}

void entities_model::set_view_enabled(uint32_t view, bool on) {
    if (view == views::everything)
        enabled_.fill(on);
    else if (view <= enabled_.size())
        enabled_[view - 1] = on;
}

} // namespace vs::project_resave::detail
