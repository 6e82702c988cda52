// Box that is checked or not.
#pragma once

#include <functional>

#include "host/toolkit/checkbox.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class checkbox final : public element_base<polymorphic<checkbox_impl>> {
public:
    explicit checkbox(wide_string caption, bool is_checked = false)
        : element_base(checkbox_impl::element_kind), caption_(std::move(caption)), checked_(is_checked) {}

    // Called after each change, be it the user's or one by code.
    void set_on_changed(std::function<void()> handler) { changed_ = std::move(handler); }
    void set_checked(bool on) {
        if (on == checked_) return;
        assign(checked_, on);
        if (changed_) changed_();
    }
    bool checked() const { return checked_; }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    checkbox_state state() override { return checked_ ? checkbox_state::checked : checkbox_state::unchecked; }
    void state_entered(checkbox_state entered) override { set_checked(entered == checkbox_state::checked); }

private:
    const wide_string caption_;
    bool checked_;
    std::function<void()> changed_;
};

} // namespace vs::project_resave::toolkit
