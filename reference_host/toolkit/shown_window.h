// An open window that a program can read and use as its user would.
#pragma once

#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Elements and rows are those of the last `look`; an event can make them invalid, so look again before the
// next one. Each event returns the same as the function with its name in element_view.h or outline_view.h. A
// window overrides them to send events in another way, such as by mouse.
class shown_window {
public:
    virtual ~shown_window() = default;

    // Returns the content with names; the tool's button box follows its children. Reads everything anew each
    // time.
    virtual element_view look() const = 0;

    // Events of the user, as the elements' interfaces define them.
    virtual bool enter_text(const element_view& field, const wide_string& text) {
        return toolkit::enter_text(field, text);
    }
    virtual bool press(const element_view& box, std::int32_t code) { return toolkit::press(box, code); }
    virtual bool click(const element_view& button) { return toolkit::click(button); }
    virtual bool set_check(const element_view& box, bool on) { return toolkit::set_check(box, on); }
    virtual bool choose(const element_view& list, std::uint32_t index) {
        return toolkit::choose(list, index);
    }
    virtual bool check_row(const element_view& outline, const row_view& row, bool on) {
        return toolkit::check_row(outline, row, on);
    }
    virtual bool highlight_row(const element_view& outline, const row_view& row, bool on) {
        return toolkit::highlight_row(outline, row, on);
    }
    virtual bool click_tool(const element_view& tool) { return toolkit::click_tool(tool); }
};

} // namespace vestra::toolkit
