// The right side of the main panel: what of the loaded project is to be resaved, in pages by kind, the tools
// for all of it, and how much data it comes to.
#pragma once

#include <array>
#include <memory>

#include "ui/select_pages.h"
#include "ui/toolkit/label_ex.h"
#include "ui/toolkit/tab_layout.h"

namespace vs::project_resave {

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
