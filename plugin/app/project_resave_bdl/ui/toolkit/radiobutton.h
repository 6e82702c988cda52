// Buttons of which at most one is checked.
#pragma once

#include <functional>
#include <vector>

#include "host/toolkit/radiobutton.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

class radiobutton;

// Knows the buttons of a group, which all end before it.
class radio_group {
public:
    void add(radiobutton& button) { buttons_.push_back(&button); }
    // Leaves no other button checked.
    void uncheck_others(const radiobutton& checked_one);

private:
    std::vector<radiobutton*> buttons_;
};

class radiobutton final : public element_base<polymorphic<radiobutton_impl>> {
public:
    radiobutton(radio_group& group, wide_string caption);

    // Called after each change of this button, be it the user's or one by code; of a button that is checked
    // after the others of the group were unchecked.
    void set_on_changed(std::function<void()> handler) { changed_ = std::move(handler); }
    // Checking it unchecks the one of its group that is checked.
    void set_checked(bool on);
    bool is_checked() const { return checked_; }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    bool checked() override { return checked_; }
    void pressed() override { set_checked(true); }

private:
    radio_group& group_;
    const wide_string caption_;
    bool checked_ = false;
    std::function<void()> changed_;
};

} // namespace vs::project_resave::toolkit
