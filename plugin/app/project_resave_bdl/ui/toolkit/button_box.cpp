#include "ui/toolkit/button_box.h"

#include <algorithm>

namespace vs::project_resave::toolkit {

button_box::button_box(std::vector<entry> entries, std::function<bool()> run)
    : element_base(button_box_impl::element_kind), entries_(std::move(entries)), run_(std::move(run)) {}

void button_box::entry_text(uint32_t index, string_visitor visitor) {
    if (index < entries_.size()) tell(visitor, entries_[index].text);
}

int32_t button_box::entry_code(uint32_t index) { return index < entries_.size() ? entries_[index].code : 0; }

bool button_box::click(int32_t code) {
    if (std::none_of(entries_.begin(), entries_.end(), [code](const entry& e) { return e.code == code; }))
        return false;
    switch (code) {
    case 1:
    case 2:
    case 32:
        return run_();
    case 4:
    case 8:
    case 64:
        return true;
    default:
        return false;
    }
}

} // namespace vs::project_resave::toolkit
