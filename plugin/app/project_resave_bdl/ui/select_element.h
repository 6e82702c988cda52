// The pages of the selection panel, and the panel itself. Main thread only.
#pragma once

#include <array>
#include <memory>

#include "ui/entities_outline.h"
#include "ui/toolkit/element_base.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"

namespace vs::project_resave::detail {

// One page of the selection. Its id, by which hosts know it, belongs to the tab layout.
class select_page : public toolkit::docker_base {
public:
    virtual ~select_page() = default;
    // Makes the host ask for all rows again.
    virtual void refresh() = 0;

protected:
    using docker_base::docker_base;
};

// The tools of a view above its outline, which gets the remaining height. Members in this order, since the
// layout refers to the other two.
struct entities_pane {
    // The model must outlive the pane.
    entities_pane(entities_model& model, uint32_t view);

    entities_toolbar tools;
    entities_outline outline;
    toolkit::grid_layout layout{2, 1};
};

// A page with one view.
class table_tab final : public select_page {
public:
    table_tab(entities_model& model, uint32_t view, wide_string title)
        : select_page(std::move(title)), pane_(model, view) {}

    element main_element() override { return pane_.layout; }
    void refresh() override { pane_.outline.refresh(); }

private:
    entities_pane pane_;
};

// A page with the scenes above and the layers of the current scene below. Moving to another scene changes the
// lower outline only.
class scene_tab final : public select_page {
public:
    scene_tab(entities_model& model, uint32_t top_view, uint32_t bottom_view, wide_string title)
        : select_page(std::move(title)), top_(model, top_view), bottom_(model, bottom_view) {}

    element main_element() override { return halves_; }
    void refresh() override {
        top_.outline.refresh();
        bottom_.outline.refresh();
    }

private:
    entities_pane top_;
    entities_pane bottom_;
    toolkit::split_layout halves_{top_.layout, bottom_.layout};
};

} // namespace vs::project_resave::detail

namespace vs::project_resave {

// The right side of the main panel: which elements of the loaded project take part, on a page for each kind,
// with tools for all of them and the total size.
class select_element final : public toolkit::docker_base {
public:
    // The context must outlive the element. The element becomes the only observer of the context's size
    // register.
    explicit select_element(project_context& owner);
    // Disconnects from the size register.
    ~select_element();

    // Shows the elements of the project, with everything checked, and disables the pages without elements;
    // null empties and enables all pages. Pass null before another project, since scenes would be added to
    // those of the earlier one.
    void set_project(vs_prj* project);
    // Shows the current size of the size register, in kilobytes, megabytes or gigabytes with two decimals. It
    // counts everything selected, whatever the active operation writes.
    void update_size_label();

    element main_element() override { return outer_; }

    // Public for the panel, which enables views and leaves elements out.
    detail::entities_model model; // outlives the elements that show it

private:
    // Creates the pages in the order of the tabs. Programs know the pages by their ids, which must not
    // change.
    void add_pages();

    // Of the context.
    size_register& sizes_;
    // The tools for everything, in one row with the size.
    detail::entities_toolbar common_tools_;
    toolkit::label_ex size_label_;
    toolkit::grid_layout top_row_{1, 2};
    // Before the tabs, which refer to the pages.
    std::array<std::unique_ptr<detail::select_page>, 8> pages_;
    toolkit::tab_layout tabs_;
    toolkit::groupbox group_;
    toolkit::grid_layout outer_{1, 1};
};

} // namespace vs::project_resave
