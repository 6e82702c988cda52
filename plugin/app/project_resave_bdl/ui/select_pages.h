// The pages of the selection panel.
#pragma once

#include "ui/entities_outline.h"
#include "ui/toolkit/docker_base.h"
#include "ui/toolkit/split_layout.h"

namespace vs::project_resave::detail {

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
