#include "ui/toolkit/radiobutton.h"

namespace vs::project_resave::toolkit {

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
    if (on) group_.uncheck_others(*this);
    assign(checked_, on);
    if (changed_) changed_();
}

} // namespace vs::project_resave::toolkit
