// Pages: the only layout whose content can change while it is shown.
#include "ui/toolkit/layouts.h"

namespace vs::project_resave::toolkit {

void tab_layout::add(wide_string id, wide_string title, const docker& content) {
    pages_.push_back({std::move(id), std::move(title), content});
}

void tab_layout::page_id(uint32_t index, string_visitor visitor) {
    if (is_inside(index)) tell(visitor, pages_[index].id);
}

void tab_layout::page_title(uint32_t index, string_visitor visitor) {
    if (is_inside(index)) tell(visitor, pages_[index].title);
}

void tab_layout::page_chosen(uint32_t index) {
    // A host may send the choice of a page that was disabled since it drew the tabs.
    if (index == active_ || !page_enabled(index)) return;
    assign(active_, index);
    if (page_changed_) page_changed_();
}

} // namespace vs::project_resave::toolkit
