// The one model behind the selection panel: everything of the loaded project that can be ticked, by views.
#pragma once

#include <array>
#include <functional>
#include <unordered_set>

#include "framework/resources/text_rows.h"
#include "host/types.h"
#include "ui/select_2part_model.h"

namespace vs::project_resave {

class project_context;

// What one outline or one tool bar stands for.
namespace views {
enum view : uint32_t {
    everything = 0, // has no rows of its own
    layers_2d = 1,  // of the current scene
    scenes_2d = 2,
    layers_3d = 3,
    scenes_3d = 4,
    dbf_tables = 5,
    tos_tables = 6,
    layouts = 7,
    wells = 8,
    correlations = 9,
    others = 10, // items of the services of all bundles
};
} // namespace views

namespace detail {

// A number above the last view does nothing anywhere, and gives null, false or empty.
class entities_model {
public:
    // The context gives the register and the services.
    explicit entities_model(project_context& owner);

    // Fills all trees, everything ticked, and shows the first scene of each kind; null clears them. A
    // project's trees come on top of the scenes that are there, so whoever opens another clears first. An
    // element without a uuid shows an error box and has no row. `view_enabled` stays as it is.
    void set_project(vs_prj* project);

    // The tools; each ends with `fire_changed`.
    void set_all(uint32_t view, bool on);
    void invert(uint32_t view);
    // Layers as they are visible in their scene, everything else ticked.
    void reset(uint32_t view);
    // Unticks rows by their uuids, in all views; the layers of a scene only if they are among them.
    void untick(const std::unordered_set<wide_string>& uuids);
    // What follows the tick of a row of this view, which is there already.
    void on_item_checked(uint32_t view, select_tree_item& item, bool on, bool only_highlighted);
    // The user went to this row; matters in lists of scenes only.
    void set_current_item(uint32_t view, const select_tree_item* item);

    // Null for everything, and for layers while no scene is current.
    select_tree_node* root(uint32_t view);
    event* changed_event(uint32_t view);
    // Of views of layers; else null.
    layer_icons* icons(uint32_t view);
    // By the number of a scenes view or the one below it (0 to 3), or of another view less one (4 to 9).
    bool is_view_empty(uint32_t tab_index);
    // Has whoever shows the view ask again; `everything` has them all.
    void fire_changed(uint32_t view);

    // Whether the outline and the tools of a view are in use; its ticks stay in force if not. `everything` is
    // enabled while any is, and sets all. Setting fires nothing.
    bool view_enabled(uint32_t view) const;
    void set_view_enabled(uint32_t view, bool on);

private:
    static constexpr uint32_t view_count = 10;
    struct flat_view {
        flat_view(selection_register& told, text::row caption);
        select_tree_node root;
        event changed;
    };

    // The model of a view of scenes or layers, and which of its parts the view is; null for any other.
    struct place {
        select_2part_model_bottom_icon* model = nullptr;
        uint32_t part = 0;
    };
    place place_of(uint32_t view);
    // Null for every other view.
    flat_view* flat_of(uint32_t view);
    using part_change = std::function<void(select_2part_model& scenes, uint32_t part)>;
    using tree_change = std::function<void(select_tree_node& tree)>;
    void change(uint32_t view, const part_change& change_part, const tree_change& change_tree);
    void fill(vs_prj* project);
    void clear();

    project_context& context_;
    select_2part_model_bottom_icon model_2d_;
    select_2part_model_bottom_icon model_3d_;
    std::array<flat_view, 6> flat_views_; // views 5 to 10
    std::array<bool, view_count> enabled_;
};

} // namespace detail

} // namespace vs::project_resave
