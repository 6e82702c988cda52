// A window that stands open, for whoever looks at it and does in it what its user would.
#pragma once

#include "reference_host/toolkit/element_view.h"

namespace vestra::toolkit {

// Elements and rows are those of the last look. The events answer as those of element_view.h and
// outline_view.h, to which they go unless a window has a way of its own, such as a mouse.
class shown_window {
public:
    virtual ~shown_window() = default;

    // The content with its names, and behind its children the tool's button box.
    virtual element_view look() const = 0;

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
