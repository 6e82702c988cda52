// Elements that the user presses: buttons, check boxes, radio buttons and tools. Main thread only.
#pragma once

#include <functional>
#include <vector>

#include "host/toolkit/button.h"
#include "host/toolkit/button_box.h"
#include "host/toolkit/checkbox.h"
#include "host/toolkit/radiobutton.h"
#include "host/toolkit/tool.h"
#include "host/toolkit/toolbar.h"
#include "ui/toolkit/element_base.h"

namespace vs::project_resave::toolkit {

// A button inside a window. Its words never change.
class button final : public element_base<polymorphic<button_impl>> {
public:
    // `handler` is called for each click, and must not be empty. The hint may be.
    button(wide_string caption, wide_string hint, std::function<void()> handler)
        : element_base(button_impl::element_kind), caption_(std::move(caption)), hint_(std::move(hint)),
          handler_(std::move(handler)) {}

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    void hint(string_visitor visitor) override { tell(visitor, hint_); }
    // Runs the handler, which may take long; hosts do not send a click to a disabled button.
    void click() override { handler_(); }

private:
    const wide_string caption_;
    const wide_string hint_;
    const std::function<void()> handler_;
};

// The code of a button, which determines the effect of a click. These are the ones that the bundle uses;
// hosts know more (host/toolkit/button_box.h).
enum button_code : int32_t { ok_code = 1, run_code = 2, close_code = 8 };

// The row of buttons of a window. The host asks for texts and codes, and closes the window if a click returns
// true.
class button_box final : public element_base<polymorphic<button_box_impl>> {
public:
    // One button: its words, and a code as in button_code.
    struct entry {
        wide_string text;
        int32_t code;
    };
    // `run` handles the buttons that do work, and returns true if the window must close. Buttons that only
    // close do not call it.
    button_box(std::vector<entry> entries, std::function<bool()> run);

    uint32_t entry_count() override { return static_cast<uint32_t>(entries_.size()); }
    void entry_text(uint32_t index, string_visitor visitor) override;
    int32_t entry_code(uint32_t index) override;
    // Runs or closes by the code; returns true if the window must close. Ignores a code that no button has.
    bool click(int32_t code) override;

private:
    const std::vector<entry> entries_;
    const std::function<bool()> run_;
};

class radiobutton;

// The buttons of a group, all of which must be destroyed before it. It only knows the buttons: each keeps its
// own state.
class radio_group {
public:
    // Adds a button; the constructor of radiobutton does this.
    void add(radiobutton& button) { buttons_.push_back(&button); }
    // Unchecks all other buttons; the handler of the one that was checked is called.
    void uncheck_others(const radiobutton& checked_one);

private:
    std::vector<radiobutton*> buttons_;
};

// One of a group of buttons of which at most one is checked.
class radiobutton final : public element_base<polymorphic<radiobutton_impl>> {
public:
    // Adds the unchecked button to the group; all buttons of a new group are unchecked.
    radiobutton(radio_group& group, wide_string caption);

    // Called after each change of this button, by the user or by code. When a button is checked, it is called
    // after the other buttons of the group were unchecked.
    void set_on_changed(std::function<void()> handler) { changed_ = std::move(handler); }
    // Checking a button unchecks the checked one of its group. Unchecking it leaves the group without a
    // checked one.
    void set_checked(bool on);
    bool is_checked() const { return checked_; }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    bool checked() override { return checked_; }
    void pressed() override { set_checked(true); }

private:
    radio_group& group_;
    const wide_string caption_;
    // Of this button; the group keeps no state.
    bool checked_ = false;
    std::function<void()> changed_;
};

// A box that is checked or not.
class checkbox final : public element_base<polymorphic<checkbox_impl>> {
public:
    // The initial state calls no handler.
    explicit checkbox(wide_string caption, bool is_checked = false)
        : element_base(checkbox_impl::element_kind), caption_(std::move(caption)), checked_(is_checked) {}

    // Called after each change, by the user or by code.
    void set_on_changed(std::function<void()> handler) { changed_ = std::move(handler); }
    // Changes the state, notifies the observer, then calls the handler; does nothing if the state is the
    // same.
    void set_checked(bool on) {
        if (on == checked_) return;
        assign(checked_, on);
        if (changed_) changed_();
    }
    bool checked() const { return checked_; }

    void caption(string_visitor visitor) override { tell(visitor, caption_); }
    checkbox_state state() override { return checked_ ? checkbox_state::checked : checkbox_state::unchecked; }
    // Any state but `checked` unchecks the box.
    void state_entered(checkbox_state entered) override { set_checked(entered == checkbox_state::checked); }

private:
    const wide_string caption_;
    bool checked_;
    std::function<void()> changed_;
};

// Passes the bundle's picture with this number, transparent where it is magenta; a picture of width 0 if
// there is none. The visitor must copy it.
void tell_picture(const masked_bitmap_visitor& visitor, uint32_t number);

// A button of a tool bar. Its hint is its caption, since a host may show only the picture.
class tool : public element_base<polymorphic<tool_impl>> {
public:
    // Picture, caption and hint have the same number. The id is the same in every language.
    tool(wide_string id, uint32_t number, std::function<void()> action)
        : element_base(tool_impl::element_kind), id_(std::move(id)), number_(number),
          action_(std::move(action)) {}

    void id(string_visitor visitor) override { tell(visitor, id_); }
    // Looked up at each call, unlike texts that are set once.
    void caption(string_visitor visitor) override;
    void hint(string_visitor visitor) override { caption(visitor); }
    // Decoded anew at each call.
    void image(masked_bitmap_visitor visitor) override { tell_picture(visitor, number_); }
    void click() override { action_(); }

private:
    const wide_string id_;
    const uint32_t number_;
    const std::function<void()> action_;
};

// A row of tools, from left to right.
class toolbar : public element_base<polymorphic<toolbar_impl>> {
public:
    toolbar() : element_base(toolbar_impl::element_kind) {}

    // Appends a tool, which must outlive the tool bar. Call before the host asks for the tools.
    void add(const element& tool) { tools_.push_back(tool); }

    uint32_t tool_count() override { return static_cast<uint32_t>(tools_.size()); }
    element tool(uint32_t index) override { return index < tools_.size() ? tools_[index] : element(); }

private:
    std::vector<element> tools_;
};

} // namespace vs::project_resave::toolkit
