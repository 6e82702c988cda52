#pragma once

#include <array>
#include <memory>

#include "ui/entities_outline.h"
#include "ui/toolkit/element_base.h"
#include "ui/toolkit/fields.h"
#include "ui/toolkit/layouts.h"

namespace vs::project_resave::detail {

// The pages of the selection panel.
class select_page : public toolkit::docker_base {
public:
    virtual ~select_page() = default;
    // Shows the rows that there are now.
    virtual void refresh() = 0;

protected:
    using docker_base::docker_base;
};

// The tools of a view above its outline, which takes the height that is left.
struct entities_pane {
    entities_pane(entities_model& model, uint32_t view);

    entities_toolbar tools;
    entities_outline outline;
    toolkit::grid_layout layout{2, 1};
};

class table_tab final : public select_page {
public:
    table_tab(entities_model& model, uint32_t view, wide_string title)
        : select_page(std::move(title)), pane_(model, view) {}

    element main_element() override { return pane_.layout; }
    void refresh() override { pane_.outline.refresh(); }

private:
    entities_pane pane_;
};

// Scenes above, the layers of the current one below.
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

// The right side of the main panel: what of the loaded project is to be resaved, in pages by kind, the tools
// for all of it, and how much data it comes to.
class select_element final : public toolkit::docker_base {
public:
    // The context must outlive the element; its size register tells the element of each change, and no one
    // else.
    explicit select_element(project_context& owner);
    ~select_element();

    // Shows the elements of the project, everything ticked, and disables the pages that have none; null
    // empties and enables them all. Whoever shows another project shows null first.
    void set_project(vs_prj* project);
    // Shows what the size register has come to. The figure counts all that is selected, whatever the active
    // operation would write.
    void update_size_label();

    element main_element() override { return outer_; }

    detail::entities_model model; // outlives whatever shows it

private:
    void add_pages();

    size_register& sizes_;
    detail::entities_toolbar common_tools_;
    toolkit::label_ex size_label_;
    toolkit::grid_layout top_row_{1, 2};
    std::array<std::unique_ptr<detail::select_page>, 8> pages_;
    toolkit::tab_layout tabs_;
    toolkit::groupbox group_;
    toolkit::grid_layout outer_{1, 1};
};

} // namespace vs::project_resave
