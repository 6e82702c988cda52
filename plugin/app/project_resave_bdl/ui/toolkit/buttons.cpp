// The clicks of buttons: what a button box does for each code, and the groups of radio buttons.

#include "ui/toolkit/buttons.h"

#include <algorithm>

#include "framework/resources/resource_bitmap.h"
#include "framework/resources/strings.h"

namespace vs::project_resave::toolkit {

button_box::button_box(std::vector<entry> entries, std::function<bool()> run)
    : element_base(button_box_impl::element_kind), entries_(std::move(entries)), run_(std::move(run)) {}

void button_box::entry_text(uint32_t index, string_visitor visitor) {
    if (index < entries_.size()) tell(visitor, entries_[index].text);
}

int32_t button_box::entry_code(uint32_t index) { return index < entries_.size() ? entries_[index].code : 0; }

bool button_box::click(int32_t code) {
    // A host could send a code that no button of this box has.
    if (std::none_of(entries_.begin(), entries_.end(), [code](const entry& e) { return e.code == code; }))
        return false;
    switch (code) {
    // The codes that do the work of the window, and below those that only close it.
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

void radio_group::uncheck_others(const radiobutton& checked_one) {
    for (radiobutton* button : buttons_)
        if (button != &checked_one) button->set_checked(false);
}

radiobutton::radiobutton(radio_group& group, wide_string caption)
    : element_base(radiobutton_impl::element_kind), group_(group), caption_(std::move(caption)) {
    group_.add(*this);
}

void radiobutton::set_checked(bool on) {
    if (on == checked_) return;
    // First the others, so that no observer sees two checked buttons.
    if (on) group_.uncheck_others(*this);
    assign(checked_, on);
    if (changed_) changed_();
}

void tell_picture(const masked_bitmap_visitor& visitor, uint32_t number) {
    // The pictures have no transparency; this colour marks the transparent pixels.
    constexpr mask_colour magenta{0xFF, 0, 0xFF};
    resource::masked_bitmap picture = load_bitmap_with_mask({platform::own_module(), number}, magenta);
    call<&masked_bitmap_visitor_impl::visit>(visitor, pointer_to<masked_bitmap_impl>(picture));
}

void tool::caption(string_visitor visitor) { localized_text({platform::own_module(), number_}, visitor); }

} // namespace vs::project_resave::toolkit
