#include "ui/select_pages.h"

namespace vs::project_resave::detail {

entities_pane::entities_pane(entities_model& model, uint32_t view)
    : tools(model, view), outline(model, view) {
    layout.place(0, 0, tools);
    layout.place(1, 0, outline);
    layout.set_spare_row(1);
}

} // namespace vs::project_resave::detail
