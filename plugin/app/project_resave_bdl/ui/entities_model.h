// The model of the selection panel: everything in the loaded project that can be selected, by views. Main
// thread only.
#pragma once

#include <array>
#include <functional>
#include <unordered_set>

#include "framework/resources/text_rows.h"
#include "host/types.h"
#include "ui/select_2part_model.h"

namespace vs::project_resave {

class project_context;

// What one outline or tool bar shows.
namespace views {
enum view : uint32_t {
    everything = 0, // all views together; has no rows
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

// For a number above the last view, operations do nothing and return null, false or an empty text.
// Every view keeps its check marks, whether it is shown or not.
class entities_model {
public:
    // The context has the register and the services; it must outlive this object.
    explicit entities_model(project_context& owner);

    // Fills all trees, with everything checked, and shows the first scene of each kind; null clears them.
    // Trees of scenes are added to the existing ones, so clear them before opening another project. An
    // element without a uuid shows an error box and has no row. `view_enabled` does not change.
    void set_project(vs_prj* project);

    // The tools of a view. Each ends with `fire_changed`.
    void set_all(uint32_t view, bool on);
    void invert(uint32_t view);
    // Checks the layers that are visible in their scene, and everything else.
    void reset(uint32_t view);
    // Unchecks rows by their uuids, in all views. The layers of a scene are unchecked only if they are listed
    // too.
    void untick(const std::unordered_set<wide_string>& uuids);
    // Updates the other rows after a row of this view was checked or unchecked.
    void on_item_checked(uint32_t view, select_tree_item& item, bool on, bool only_highlighted);
    // The user moved to this row; has an effect only in lists of scenes.
    void set_current_item(uint32_t view, const select_tree_item* item);

    // Return the tree and the event of a view; null for `everything`, and no tree for layers while there is
    // no current scene. A tree of layers is valid until the model is cleared or its scene is read again; the
    // others and the events as long as the model.
    select_tree_node* root(uint32_t view);
    event* changed_event(uint32_t view);
    // Returns the icons of a view of layers; null for other views.
    layer_icons* icons(uint32_t view);
    // `tab_index`: 0-3 for the scene views (either of a pair), 4-9 for view - 1.
    bool is_view_empty(uint32_t tab_index);
    // Makes the elements that show the view ask again; `everything` means all views.
    void fire_changed(uint32_t view);

    // Whether the outline and the tools of a view can be used; the check marks of a disabled view still
    // count. `everything` is enabled if any view is, and setting it sets all. Setting fires no event.
    bool view_enabled(uint32_t view) const;
    void set_view_enabled(uint32_t view, bool on);

private:
    static constexpr uint32_t view_count = 10;
    // A view with one tree: tables, layouts, sheets and items of services. `told` is the register that its
    // leaves change.
    struct flat_view {
        flat_view(selection_register& told, text::row caption);
        select_tree_node root;
        event changed;
    };

    // A view of scenes or layers: its model and its part of the model. The model is null for other views.
    struct place {
        select_2part_model_bottom_icon* model = nullptr;
        uint32_t part = 0;
    };
    // Returns where the view's trees are.
    place place_of(uint32_t view);
    // Returns null for a view of scenes or layers.
    flat_view* flat_of(uint32_t view);
    // How set_all, invert and reset change one part of a model, and one tree.
    using part_change = std::function<void(select_2part_model& scenes, uint32_t part)>;
    using tree_change = std::function<void(select_tree_node& tree)>;
    // Applies the matching function to each tree of the view, then fires its events.
    void change(uint32_t view, const part_change& change_part, const tree_change& change_tree);
    // Reads all trees from the project.
    void fill(vs_prj* project);
    void clear();

    project_context& context_;
    select_2part_model_bottom_icon model_2d_;
    select_2part_model_bottom_icon model_3d_;
    std::array<flat_view, 6> flat_views_; // views 5 to 10
    // By view - 1.
    std::array<bool, view_count> enabled_;
};

} // namespace detail

} // namespace vs::project_resave
